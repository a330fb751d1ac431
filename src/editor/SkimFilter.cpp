#include "editor/SkimFilter.h"

#ifdef __x86_64__
#include <immintrin.h>
#define QUILLMARK_AVX2 __attribute__((target("avx2")))
#endif

namespace editor {
namespace {

constexpr std::uint8_t TokenClass = 1, CandidateClass = 2, WideClass = 4;

}  // namespace

void SkimFilter::SetClasses(const std::array<bool, 256>& tokenBytes, const std::array<bool, 256>& blankBytes,
                            bool caseSensitive) {
  for (unsigned byte = 0; byte < 256; ++byte) {
    m_classes[byte] = byte >= 0x80 ? WideClass : tokenBytes[byte] ? TokenClass : blankBytes[byte] ? 0 : CandidateClass;
    const auto row = static_cast<std::uint8_t>(1U << (byte >> 4 & 7));  // bytes beyond ASCII are in no row
    if (m_classes[byte] == TokenClass) m_tokenRows[byte & 15] |= row;
    if (m_classes[byte] == CandidateClass) m_candidateRows[byte & 15] |= row;
  }
  for (unsigned length = 1; length <= 8; ++length) m_masks[length] = ~std::uint64_t{0} >> (64 - 8 * length);
  m_caseBits = caseSensitive ? 0 : 0x2020202020202020U;
}

void SkimFilter::AddToken(std::string_view folded) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, folded.data(), std::min(folded.size(), sizeof bytes));
  // Longer tokens are never whole in a block and do not come here.
  Set(BitOf(bytes, static_cast<unsigned>(std::min(folded.size(), BlockBytes)), true));
}

void SkimFilter::AddPair(unsigned char first, unsigned char second) {
  Set(BitOf(first | std::uint64_t{second} << 8, 2, false));
}

SkimFilter::Block SkimFilter::SortBytes(const char* text) const {
  Block block;
  unsigned classes = 0;
  for (unsigned i = 0; i < BlockBytes; ++i) {
    const unsigned kind = m_classes[static_cast<unsigned char>(text[i])];
    block.Tokens |= std::uint64_t{kind & TokenClass} << i;
    block.Candidates |= std::uint64_t{kind / CandidateClass & 1U} << i;
    classes |= kind;
  }
  block.Wide = (classes & WideClass) != 0;
  return block;
}

#ifdef __x86_64__

namespace {

/// The bits of the 32 bytes whose class the rows name.
QUILLMARK_AVX2 std::uint64_t BytesIn(const std::array<std::uint8_t, 16>& rows, const __m256i& bytes) {
  const __m256i half = _mm256_set1_epi8(0x0F);
  const __m256i table = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(rows.data())));
  const __m256i rowBits =
      _mm256_broadcastsi128_si256(_mm_setr_epi8(1, 2, 4, 8, 16, 32, 64, -128, 0, 0, 0, 0, 0, 0, 0, 0));
  const __m256i row = _mm256_shuffle_epi8(rowBits, _mm256_and_si256(_mm256_srli_epi16(bytes, 4), half));
  const __m256i hits = _mm256_and_si256(_mm256_shuffle_epi8(table, _mm256_and_si256(bytes, half)), row);
  return ~static_cast<std::uint32_t>(_mm256_movemask_epi8(_mm256_cmpeq_epi8(hits, _mm256_setzero_si256())));
}

}  // namespace

QUILLMARK_AVX2 SkimFilter::Block SkimFilter::SortVectors(const char* text) const {
  const __m256i low = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text));
  const __m256i high = _mm256_loadu_si256(reinterpret_cast<const __m256i*>(text) + 1);
  Block block;
  block.Tokens = BytesIn(m_tokenRows, low) | BytesIn(m_tokenRows, high) << 32;
  block.Candidates = BytesIn(m_candidateRows, low) | BytesIn(m_candidateRows, high) << 32;
  block.Wide = _mm256_movemask_epi8(_mm256_or_si256(low, high)) != 0;
  return block;
}

SkimFilter::Block SkimFilter::Sort(const char* text) const {
  static const bool hasVectors = __builtin_cpu_supports("avx2") != 0;
  return hasVectors ? SortVectors(text) : SortBytes(text);
}

#else

SkimFilter::Block SkimFilter::Sort(const char* text) const {
  return SortBytes(text);
}

#endif

}  // namespace editor
