// What a program with windows says to whoever has started it, outside its windows. Each system has
// its own source file for it, with the rest of the system's adapters (system_adapters_*.cpp).
#pragma once

#include <optional>
#include <string>

class QCommandLineParser;

namespace tidewarden {

// What somebody has asked for, such as the help: `text` as it is, on standard output. On Windows,
// where a program with windows may have been started without one, in a box. False when standard
// output cannot be written.
[[nodiscard]] bool Tell(const std::string& text);

// Why the program ends at once: a line on standard error, to which its end is added here, or on
// Windows in a box when there is none.
void TellRefusal(const std::string& line);

// Answers --help, --help-all (on Windows the same as --help) and --version of a parsed command
// line. An exit code, 0 or 4 (not written), when there was one of them to answer.
[[nodiscard]] std::optional<int> AnswerAboutProgram(QCommandLineParser& parser);

// There is nothing more to say, the windows come up. On Windows lets go of the console that the
// program was started from: its Ctrl+C and its end are not meant for windows that stay.
void LeaveCaller();

}  // namespace tidewarden
