#pragma once
// The whole-document pass over the parts of a long text at the same time. Private to the colouring passes.
//
// What a pass finds depends on nothing but the place where it stands between two runs. So a part can be passed over
// before it is known where the pass over the text before it arrives: as soon as both have stood at the same place,
// they find the same. Where the part begins inside a comment, that takes a few lines; what was found until then is
// dropped. A part that is never met is passed over once more.

#include <atomic>
#include <future>
#include <string_view>
#include <vector>

#include "editor/ColourPass.h"
#include "editor/PassTables.h"
#include "editor/WholePass.h"

namespace editor {

class SplitPass {
 public:
  /// Passes over the text in so many parts, each in a thread of its own; as many as pay when it is 0.
  SplitPass(const PassTables& tables, std::string_view text, const ColourPass::Progress& progress, std::size_t parts);

  std::vector<PassRun> Run();

 private:
  /// What was found in a part of the text.
  struct Part {
    std::size_t End = 0;  ///< byte offset
    UnitPosition Reached{};
    std::vector<PassRun> Runs{};
    std::vector<UnitPosition> Places{};  ///< where the search stood before the first runs
    bool Over = false;
  };

  std::size_t LineStart(std::size_t offset) const;
  Part PassOver(std::size_t start, std::size_t end) const;
  void StartParts();
  /// Goes on from where the pass stands until it is at the end of a part, or meets its places.
  void Join(const Part& part);
  void Adopt(const Part& part, std::size_t runsBefore);
  /// Waits for a part, during which the progress is told. False when the pass was stopped.
  bool Await(const std::future<Part>& part);
  bool Report(std::size_t done);

  const PassTables& m_tables;
  std::string_view m_text;
  const ColourPass::Progress& m_progress;
  std::size_t m_parts;
  std::size_t m_reported = 0;
  std::atomic<bool> m_stopped = false;

  const ColourPass::Progress m_report = [this](std::size_t done) { return Report(done); };
  WholePass m_pass;
  UnitPosition m_place{0, 0, true};
  std::vector<PassRun> m_runs;
  bool m_over = false;

  std::vector<std::size_t> m_ends;           ///< of all parts, byte offsets
  std::vector<std::future<Part>> m_results;  ///< of all parts but the first; last, since their threads end first
};

}  // namespace editor
