// The events file: walking its lines, and changing single lines of it while every other line
// stays byte for byte.
//
// A line is ended by CR LF, LF or a lone CR; a last line without an end counts. Lines are
// numbered from 0, rejected and blank ones included. A UTF-8 byte-order mark is not part of the
// first line, even where other bytes make the file Windows-1252. Rewritten files end every line in
// CR LF.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "core/file_system.h"
#include "core/message_box.h"
#include "core/text_encoding.h"

namespace tidewarden {

// Receives the lines of an events file.
class EventLineVisitor {
 public:
  virtual ~EventLineVisitor() = default;

  // Lines follow, from the first one on. Called again when the file turns out to be in another
  // encoding than it seemed: whatever came before is then void.
  virtual void Start() = 0;

  // The next line without its end: its bytes in the file, and the same as UTF-8 text. The views
  // are good during the call.
  virtual void Visit(long number, std::string_view rawLine, std::string_view text) = 0;
};

// Reads the events file in pieces and hands every line to `visitor`; needs no more memory than
// the longest line. kNotFound only when the file does not exist; kNotText for UTF-16. After a
// failure what the visitor has seen is void.
Status ReadEventLines(FileSystem& files, const std::string& path, EventLineVisitor& visitor);

// The same for the bytes of a file that has been read already.
Status VisitEventLines(std::string_view content, EventLineVisitor& visitor);

// What becomes of a line when the file is rewritten.
enum class LineChange { kKeep, kRemove, kDropLastCharacter, kAppendHiddenMark };

using ChangeLine = std::function<LineChange(std::size_t number, std::string_view rawLine)>;

// Looks at the bytes of a file before its lines are asked for one by one.
using LookAtFile = std::function<void(std::string_view content)>;

// The lines of a file's bytes, with the numbers that RewriteEventsFile gives them.
void VisitRawLines(std::string_view content,
                   const std::function<void(std::size_t number, std::string_view rawLine)>& visit);

// Reads the file afresh, asks `change` for every raw line in order, and replaces the file (see
// ReplaceEventsFile; `rescueFolder` is the user's data folder). The byte-order mark and the
// encoding stay. Nothing is written when no line changes, and after any error. The last character
// of a line that is dropped must be ASCII.
//
// A file that another program changes meanwhile gets the change once more, from the reading on:
// `look`, which may be empty, is called first in every try. kBusy when the file changes each time.
Status RewriteEventsFile(FileSystem& files, const std::string& path,
                         const std::string& rescueFolder, const ChangeLine& change,
                         const LookAtFile& look = {});

// Tells the user that the events file is missing and creates it empty, with its folder.
Status CreateNewEventsFile(FileSystem& files, MessageBox& messages, const std::string& path);

}  // namespace tidewarden
