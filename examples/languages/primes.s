/* Prints the primes below a limit, by sieving. For GNU as, in the order of operands of AT&T.
 *
 *     gcc -no-pie primes.s -o primes && ./primes 100
 */

        .set    DEFAULT_LIMIT, 0x64     # 100
        .set    MOST, 1 << 20

        .macro  save registers:vararg   # pushes registers
        .irp    register, \registers
        pushq   \register
        .endr
        .endm

        .section .rodata
usage:  .asciz  "usage: %s [limit up to %d]\n"
number: .string "%d"
comma:  .string ", "
quote:  .byte   '"', '\n', 0

        .bss
        .balign 64
sieve:  .zero   MOST
        .local  count
        .comm   count, 8, 8

        .text
        .globl  main
        .type   main, @function
main:
        .cfi_startproc
        save    %rbp, %rbx, %r12
        movl    $DEFAULT_LIMIT, %r12d
        cmpl    $2, %edi
        jl      1f                      # no argument
        movq    8(%rsi), %rdi
        movq    %rsi, %rbx
        call    atoi
        movl    %eax, %r12d
        cmpl    $2, %eax
        jb      bad
        cmpl    $MOST, %eax
        ja      bad

1:      leaq    sieve(%rip), %rbp
        movl    $2, %ebx

next:   movslq  %ebx, %rax
        imulq   %rax, %rax              /* the first multiple that is not struck out yet */
        cmpq    %r12, %rax
        jae     show
        cmpb    $0, (%rbp, %rbx)
        jne     3f
2:      movb    $1, (%rbp, %rax)
        addq    %rbx, %rax
        cmpq    %r12, %rax
        jb      2b
3:      incl    %ebx
        jmp     next

show:   movl    $2, %ebx
4:      cmpb    $0, (%rbp, %rbx, 1)
        jnz     6f
        cmpq    $0, count(%rip)
        je      5f
        movq    stdout(%rip), %rsi
        leaq    comma(%rip), %rdi
        call    fputs
5:      incq    count(%rip)
        movl    %ebx, %esi
        leaq    number(%rip), %rdi
        xorl    %eax, %eax              # no vector registers in use
        call    printf
6:      incl    %ebx
        cmpl    %r12d, %ebx
        jb      4b
        movl    $'\n', %edi
        call    putchar
        xorl    %eax, %eax

leave_: popq    %r12
        popq    %rbx
        popq    %rbp
        ret

bad:    movl    $MOST, %edx
        movq    (%rbx), %rsi
        leaq    usage(%rip), %rdi
        xorl    %eax, %eax
        call    printf
        movl    $2, %eax
        jmp     leave_
        .cfi_endproc
        .size   main, .-main

        .section .note.GNU-stack, "", @progbits
