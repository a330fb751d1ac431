; Writes standard input as hexadecimal bytes, sixteen a line. For NASM on Linux, without a library.
;
;     nasm -f elf64 dump.asm && ld dump.o -o dump && ./dump < dump.asm

        bits    64
        default rel

%define SYS_READ        0
%define SYS_WRITE       1
%define SYS_EXIT        60
%assign PER_LINE        16
%assign LINE_BYTES      PER_LINE * 3

%macro  syscall3 4              ; number and three arguments
        mov     eax, %1
        mov     edi, %2
        lea     rsi, [%3]
        mov     edx, %4
        syscall
%endmacro

%if PER_LINE % 8 != 0
  %error "The bytes of a line don't fill it."
%endif

struc   place
  .offset:      resq 1
  .bytes:       resd 1
endstruc

        section .rodata
digits: db      "0123456789abcdef"
failed: db      'It', 39, 's not readable', `\n`
.size:  equ     $ - failed

        section .bss
        align   16
input:  resb    PER_LINE
line:   resb    LINE_BYTES
here:   resb    place_size

        section .text
        global  _start
_start:
        syscall3 SYS_READ, 0, input, PER_LINE
        test    rax, rax
        jz      .end
        js      .error
        add     [here + place.offset], rax
        mov     dword [here + place.bytes], eax

        mov     ecx, eax
        lea     rsi, [input]
        lea     rdi, [line]
        lea     rbx, [digits]
.byte:  movzx   edx, byte [rsi]
        mov     eax, edx
        shr     eax, 4
        mov     al, [rbx + rax]
        mov     [rdi], al
        and     edx, 0x0f       ; the lower four bits
        mov     al, [rbx + rdx]
        mov     [rdi + 1], al
        mov     byte [rdi + 2], ' '
        inc     rsi
        add     rdi, 3
        dec     ecx
        jnz     .byte

        mov     byte [rdi - 1], 10
        lea     rdx, [line]
        sub     rdi, rdx
        mov     rdx, rdi
        syscall3 SYS_WRITE, 1, line, edx
        jmp     _start

.error: syscall3 SYS_WRITE, 2, failed, failed.size
        mov     edi, 1
        jmp     .leave
.end:   xor     edi, edi
.leave: mov     eax, SYS_EXIT
        syscall

        times   4 nop
