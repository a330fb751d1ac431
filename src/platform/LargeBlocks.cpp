// Large blocks of memory come in large pages.
//
// A text of 100 MB is twice as many bytes in the editing component and again in every copy that is handed about, each
// touched for the first time page by page: with pages of 4 KB that was four fifths of the time to open such a text. The
// program's own operator new asks the kernel for pages of 2 MB where a block is several of them; all other blocks are
// what they were. Any block is released as usual. Sanitized builds keep the sanitizer's own allocator.

#if !defined(__SANITIZE_ADDRESS__)

#include <sys/mman.h>

#include <cstdlib>
#include <new>

namespace {

constexpr std::size_t LargePage = 2 * 1024 * 1024;
constexpr std::size_t LargeBlock = 2 * LargePage;

void* Allocate(std::size_t size) {
  if (size < LargeBlock || size > static_cast<std::size_t>(-1) / 2) return std::malloc(size == 0 ? 1 : size);
  const std::size_t whole = (size + LargePage - 1) / LargePage * LargePage;
  void* block = std::aligned_alloc(LargePage, whole);
  if (block != nullptr) madvise(block, whole, MADV_HUGEPAGE);  // a wish: without large pages all goes on as ever
  return block;
}

}  // namespace

void* operator new(std::size_t size) {
  while (true) {
    if (void* block = Allocate(size)) return block;
    const std::new_handler handler = std::get_new_handler();
    if (handler == nullptr) throw std::bad_alloc();
    handler();
  }
}

#endif
