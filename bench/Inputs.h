#pragma once
// What the benchmarks work on: one real script, texts of other sizes made of it, and the JavaScript template that
// ships. Sizes are bytes; a megabyte is 10^6 of them. Everything is made once and kept until the program ends.

#include <benchmark/benchmark.h>

#include <string>

#include "editor/ColourPass.h"
#include "templates/Model.h"

namespace bench {

inline constexpr std::size_t Megabyte = 1'000'000;

/// Reads the script whose path stands behind the benchmark library's own arguments. Call it first; false, with a
/// message on standard error, when there is none or it cannot be read.
bool ReadScript(int argc, char** argv);

/// The script as it is.
const std::string& Script();

/// The script again and again, cut at the end of the line in which `bytes` are reached.
const std::string& ScriptOfSize(std::size_t bytes);

/// The same in a single line: blanks for line ends, and no comment that would run to the end of it.
const std::string& LineOfSize(std::size_t bytes);

/// The text of the JavaScript template that ships, alone and with so many further colour words.
std::string TemplateText(std::size_t furtherWords = 0);

/// Loads a template's text; ends the program when a line of it is bad.
templates::TemplateFields LoadFields(const std::string& templateText);

/// The JavaScript template that ships, and its prepared pass.
const templates::TemplateFields& JavaScript();
const editor::ColourPass& JavaScriptPass();

/// Reports how much text one round goes over.
void CountText(benchmark::State& state, std::size_t bytes);

}  // namespace bench
