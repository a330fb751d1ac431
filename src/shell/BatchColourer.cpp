#include "shell/BatchColourer.h"

#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <ostream>

#include "editor/ColouredOutput.h"
#include "import/ImportFile.h"
#include "platform/FileParsing.h"
#include "platform/Files.h"
#include "rich_text/Encoding.h"
#include "shell/TemplateList.h"
#include "templates/Loader.h"

namespace shell {
namespace {

constexpr int Success = 0, Unreadable = 1, WrongUsage = 2;

constexpr std::string_view HelpText =
    "Usage: quillmark-colour [OPTION…] [FILE|-]\n"
    "       quillmark-colour --import DEFINITION >NEW.def\n"
    "Colours FILE (standard input without one, or for \"-\") with a template and writes the result to standard "
    "output.\n"
    "\n"
    "  --template FILE.def  the template; otherwise the one for the file's extension\n"
    "  --to rtf|html|ansi   what to write; rtf without this option\n"
    "  --fragment           HTML: the <pre> alone, not a whole page\n"
    "  --strict             bad lines of the template are an error\n"
    "  --import DEFINITION  make a template of a syntax definition: KDE's .xml, SciTE's .properties, highlight's "
    ".lang;\n"
    "                       what a template cannot say is told on standard error\n"
    "  --language NAME      the language, of several in a definition\n"
    "  --list               list the templates, with their extensions and files\n"
    "  --help, --version    this text; the version\n"
    "\n"
    "Exit status: 0; 1 when a file or template cannot be read; 2 for wrong usage.\n";

/// Writes to a descriptor. A reader who has closed the pipe ends the writing quietly; any other failure is kept.
class DescriptorSink {
 public:
  explicit DescriptorSink(int descriptor) : m_descriptor(descriptor) {}

  bool Write(std::string_view piece) {
    while (!piece.empty()) {
      const ssize_t written = ::write(m_descriptor, piece.data(), piece.size());
      if (written < 0 && errno == EINTR) continue;
      if (written < 0) {
        if (errno != EPIPE) m_error = std::strerror(errno);
        return false;
      }
      piece.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
  }
  const std::string& Error() const { return m_error; }

 private:
  int m_descriptor;
  std::string m_error;
};

int List(const platform::ProgramPlaces& places, DescriptorSink& sink) {
  std::string lines;
  for (const templates::Template& record : ReadTemplateList(platform::FindProgramFolder(places, false)))
    lines += record.Name + '\t' + record.Extension + '\t' + record.FileName + '\n';
  sink.Write(lines);
  return Success;
}

/// The template file to use, "" for none.
std::string ChooseTemplate(const BatchOptions& options, const platform::ProgramPlaces& places) {
  if (!options.Template.empty()) return options.Template;
  const std::string name = platform::FileNameOf(options.File);
  const std::vector<templates::Template> list = ReadTemplateList(platform::FindProgramFolder(places, false));
  const std::string file = templates::FileOfExtension(list, platform::FileExtension(name));
  return file.empty() ? templates::FileOfExtension(list, name) : file;
}

/// Loads the template and reports its bad lines; false when it cannot be used.
bool Load(const std::string& file, bool strict, templates::TemplateFields& fields, std::ostream& errors) {
  templates::CollectedMessages messages;
  templates::LoadOptions options;
  options.NoInitialText = true;
  const templates::LoadResult loaded = templates::LoadTemplate(file, fields, options, messages);
  if (!loaded.Error.empty()) {
    errors << "quillmark-colour: " << file << ": " << loaded.Error << '\n';
    return false;
  }
  for (const templates::LoadProblem& problem : messages.Problems)
    errors << problem.File << ':' << problem.LineNumber << ": " << problem.Reason << '\n';
  return !strict || messages.Problems.empty();
}

void WriteColoured(const BatchOptions& options, const editor::ColouredText& coloured, DescriptorSink& sink) {
  const editor::OutputSink write = [&](std::string_view piece) { return sink.Write(piece); };
  switch (options.To) {
    case BatchOptions::Format::Rtf:
      return editor::WriteColouredRtf(coloured, "Courier New", write);
    case BatchOptions::Format::Html:
      return editor::WriteColouredHtml(coloured, options.File == "-" ? "Quillmark" : platform::FileNameOf(options.File),
                                       options.Fragment, write);
    case BatchOptions::Format::Ansi:
      return editor::WriteColouredAnsi(coloured, write);
  }
}

int Colour(const BatchOptions& options, const platform::ProgramPlaces& places, DescriptorSink& sink,
           std::ostream& errors) {
  platform::FileContent content =
      options.File == "-" ? platform::ReadDescriptor(STDIN_FILENO) : platform::ReadFile(options.File);
  const std::string name = options.File == "-" ? "standard input" : options.File;
  if (!content.Ok()) {
    errors << "quillmark-colour: " << name << ": " << content.Error << '\n';
    return Unreadable;
  }
  templates::TemplateFields fields;
  const std::string file = ChooseTemplate(options, places);
  if (file.empty()) {
    errors << "quillmark-colour: " << name << ": no template knows this extension; the text is not coloured\n";
    if (options.Strict) return Unreadable;
  } else if (!Load(file, options.Strict, fields, errors)) {
    return Unreadable;
  }
  const rich_text::DecodedText decoded = rich_text::DecodeText(std::move(content.Bytes));
  const std::vector<editor::PassRun> runs = editor::ColourPass(fields).Whole(decoded.Text);
  WriteColoured(options, {decoded.Text, runs, fields.Colours}, sink);
  return Success;
}

std::string Today() {
  const std::time_t now = std::chrono::system_clock::to_time_t(std::chrono::system_clock::now());
  std::tm parts{};
  char text[32];
  ::localtime_r(&now, &parts);
  return {text, std::strftime(text, sizeof text, "%Y-%m-%d", &parts)};
}

/// "FILE:LINE: ", without the line where none is known.
std::string PlaceIn(const std::string& file, std::size_t line) {
  return file + (line > 0 ? ':' + std::to_string(line) : "") + ": ";
}

int Import(const BatchOptions& options, DescriptorSink& sink, std::ostream& errors) {
  const import::ImportedFile imported = import::ImportFile(options.File, options.Language, Today());
  if (!imported.Error.empty()) {
    errors << "quillmark-colour: " << PlaceIn(options.File, imported.ErrorLine) << imported.Error << '\n';
    return Unreadable;
  }
  for (const import::Loss& loss : imported.Losses) errors << PlaceIn(loss.File, loss.Line) << loss.What << '\n';
  sink.Write(imported.Template);
  return Success;
}

/// Takes the value of an option from "--name=value" or from the argument that follows.
bool TakeValue(const std::vector<std::string>& arguments, std::size_t& i, std::string_view name, std::string& value) {
  const std::string& argument = arguments[i];
  if (argument == name && i + 1 < arguments.size()) {
    value = arguments[++i];
    return true;
  }
  if (argument.size() > name.size() && argument.starts_with(name) && argument[name.size()] == '=') {
    value = argument.substr(name.size() + 1);
    return true;
  }
  return false;
}

bool SetFormat(BatchOptions& options, const std::string& value) {
  if (value == "rtf")
    options.To = BatchOptions::Format::Rtf;
  else if (value == "html")
    options.To = BatchOptions::Format::Html;
  else if (value == "ansi")
    options.To = BatchOptions::Format::Ansi;
  else
    return false;
  return true;
}

bool SetFlag(BatchOptions& options, const std::string& argument) {
  if (argument == "--fragment")
    options.Fragment = true;
  else if (argument == "--strict")
    options.Strict = true;
  else if (argument == "--list")
    options.What = BatchOptions::Task::List;
  else if (argument == "--help" || argument == "-h")
    options.What = BatchOptions::Task::Help;
  else if (argument == "--version")
    options.What = BatchOptions::Task::Version;
  else
    return false;
  return true;
}

}  // namespace

BatchOptions ParseBatchOptions(const std::vector<std::string>& arguments) {
  BatchOptions options;
  bool onlyFiles = false, hasFile = false;
  const auto takeFile = [&](const std::string& file) {
    if (hasFile) options.Error = "more than one file: " + file;
    options.File = file;
    hasFile = true;
  };
  for (std::size_t i = 0; i < arguments.size() && options.Error.empty(); ++i) {
    const std::string& argument = arguments[i];
    std::string value;
    if (onlyFiles || argument == "-" || !argument.starts_with('-')) {
      takeFile(argument);
    } else if (argument == "--") {
      onlyFiles = true;
    } else if (TakeValue(arguments, i, "--template", value)) {
      options.Template = value;
      if (value.empty()) options.Error = "--template needs a file";
    } else if (TakeValue(arguments, i, "--import", value)) {
      options.What = BatchOptions::Task::Import;
      takeFile(value);
      if (value.empty()) options.Error = "--import needs a file";
    } else if (TakeValue(arguments, i, "--language", value)) {
      options.Language = value;
    } else if (TakeValue(arguments, i, "--to", value)) {
      if (!SetFormat(options, value)) options.Error = "--to takes rtf, html or ansi, not " + value;
    } else if (!SetFlag(options, argument)) {
      options.Error = "unknown option, or one without its value: " + argument;
    }
  }
  if (options.Error.empty() && !options.Language.empty() && options.What != BatchOptions::Task::Import)
    options.Error = "--language belongs to --import";
  return options;
}

std::string BatchHelpText() {
  return std::string(HelpText);
}

int RunBatchColourer(const BatchOptions& options, const platform::ProgramPlaces& places, int outputDescriptor,
                     std::ostream& errors) {
  if (!options.Error.empty()) {
    errors << "quillmark-colour: " << options.Error << "\nTry \"quillmark-colour --help\".\n";
    return WrongUsage;
  }
  DescriptorSink sink(outputDescriptor);
  int status = Success;
  switch (options.What) {
    case BatchOptions::Task::Help:
      sink.Write(HelpText);
      break;
    case BatchOptions::Task::Version:
      sink.Write("quillmark-colour " QUILLMARK_VERSION "\n");
      break;
    case BatchOptions::Task::List:
      status = List(places, sink);
      break;
    case BatchOptions::Task::Import:
      status = Import(options, sink, errors);
      break;
    case BatchOptions::Task::Colour:
      status = Colour(options, places, sink, errors);
      break;
  }
  if (sink.Error().empty()) return status;
  errors << "quillmark-colour: standard output: " << sink.Error() << '\n';
  return Unreadable;
}

}  // namespace shell
