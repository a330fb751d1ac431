// The passes without a window: colouring alone, and a coloured text to RTF and back.

#include <cstdlib>

#include "bench/Inputs.h"
#include "editor/ColouredOutput.h"
#include "rich_text/Rtf.h"

namespace bench {
namespace {

constexpr std::size_t ManyWords = 1'000'000;

void MeasurePass(benchmark::State& state, const editor::ColourPass& pass, const std::string& text) {
  std::size_t runs = 0;
  for (auto _ : state) {
    const std::vector<editor::PassRun> found = pass.Whole(text);
    benchmark::DoNotOptimize(found.data());
    runs = found.size();
  }
  CountText(state, text.size());
  state.counters["runs"] = static_cast<double>(runs);
}

void Pass(benchmark::State& state) {
  MeasurePass(state, JavaScriptPass(), Script());
}
BENCHMARK(Pass)->Unit(benchmark::kMillisecond)->UseRealTime();

// A text smaller than the script is another part of it in each round: the same few bytes again and again would be
// learnt by heart by the processor, and no part is like the whole.
void PassGrowth(benchmark::State& state) {
  const std::size_t size = static_cast<std::size_t>(state.range(0)) * Megabyte;
  const std::string_view whole = size < Script().size() ? std::string_view(Script()) : ScriptOfSize(size);
  std::size_t from = 0;
  for (auto _ : state) {
    const std::vector<editor::PassRun> found = JavaScriptPass().Whole(whole.substr(from, size));
    benchmark::DoNotOptimize(found.data());
    from = from + 2 * size <= whole.size() ? whole.find('\n', from + size) + 1 : 0;
    if (from + size > whole.size()) from = 0;
  }
  CountText(state, size);
}
BENCHMARK(PassGrowth)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond)->UseRealTime();

void PassOneLine(benchmark::State& state) {
  MeasurePass(state, JavaScriptPass(), LineOfSize(50 * Megabyte));
}
BENCHMARK(PassOneLine)->Unit(benchmark::kMillisecond)->UseRealTime();

const templates::TemplateFields& ManyFields() {
  static const templates::TemplateFields fields = LoadFields(TemplateText(ManyWords));
  return fields;
}

void PassManyWords(benchmark::State& state) {
  static const editor::ColourPass pass(ManyFields());
  MeasurePass(state, pass, Script());
}
BENCHMARK(PassManyWords)->Unit(benchmark::kMillisecond)->UseRealTime();

void LoadManyWords(benchmark::State& state) {
  const std::string text = TemplateText(ManyWords);
  for (auto _ : state) benchmark::DoNotOptimize(LoadFields(text).ColWords.Count());
}
BENCHMARK(LoadManyWords)->Unit(benchmark::kMillisecond)->UseRealTime();

void PrepareManyWords(benchmark::State& state) {
  for (auto _ : state) {
    const editor::ColourPass pass(ManyFields());
    benchmark::DoNotOptimize(&pass);
  }
}
BENCHMARK(PrepareManyWords)->Unit(benchmark::kMillisecond)->UseRealTime();

rich_text::StyledText ColouredScript() {
  const std::vector<editor::PassRun> runs = JavaScriptPass().Whole(Script());
  return {Script(), JavaScript().Colours, editor::ColouredRuns(runs, JavaScript().Colours)};
}

void WriteRtf(benchmark::State& state) {
  const rich_text::StyledText styled = ColouredScript();
  for (auto _ : state) benchmark::DoNotOptimize(rich_text::WriteRtf(styled, "Courier New").data());
  CountText(state, styled.Text.size());
}
BENCHMARK(WriteRtf)->Unit(benchmark::kMillisecond)->UseRealTime();

void ReadRtf(benchmark::State& state) {
  const std::string rtf = rich_text::WriteRtf(ColouredScript(), "Courier New");
  for (auto _ : state) benchmark::DoNotOptimize(rich_text::ReadRtf(rtf).Text.data());
  CountText(state, Script().size());
  state.counters["rtf"] = static_cast<double>(rtf.size());
}
BENCHMARK(ReadRtf)->Unit(benchmark::kMillisecond)->UseRealTime();

void WriteColouredRtf(benchmark::State& state) {
  const std::vector<editor::PassRun> runs = JavaScriptPass().Whole(Script());
  for (auto _ : state) {
    std::size_t bytes = 0;
    editor::WriteColouredRtf({Script(), runs, JavaScript().Colours}, "Courier New", [&](std::string_view piece) {
      benchmark::DoNotOptimize(piece.data());
      bytes += piece.size();
      return true;
    });
    benchmark::DoNotOptimize(bytes);
  }
  CountText(state, Script().size());
}
BENCHMARK(WriteColouredRtf)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (!bench::ReadScript(argc, argv)) return EXIT_FAILURE;
  benchmark::RunSpecifiedBenchmarks();
  return EXIT_SUCCESS;
}
