#include "core/events_file.h"

#include <new>
#include <utility>

#include "core/interrupted_save.h"
#include "core/line_splitter.h"
#include "dates/text.h"

namespace tidewarden {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// One pass over the file in one encoding.
class Pass {
 public:
  Pass(TextEncoding encoding, EventLineVisitor& visitor) : encoding_(encoding), visitor_(visitor) {}

  // False when the pass need not go on.
  bool Take(std::string_view piece) {
    // A piece of pure ASCII settles its lines at once; the others are looked at one by one.
    const bool pieceIsAscii = IsAscii(piece);
    openLineIsAscii_ = openLineIsAscii_ && pieceIsAscii;
    lines_.Take(piece, [&](std::string_view line) {
      Line(line, openLineIsAscii_);
      openLineIsAscii_ = pieceIsAscii;
    });
    return !isUtf16_ && !isOtherEncoding_;
  }

  void Finish() {
    lines_.Finish([&](std::string_view line) {
      // A file of nothing but a byte-order mark has no line.
      const bool onlyMark = number_ == 0 && line == kByteOrderMark;
      if (!onlyMark) Line(line, openLineIsAscii_);
    });
  }

  [[nodiscard]] bool isUtf16() const { return isUtf16_; }
  [[nodiscard]] bool isOtherEncoding() const { return isOtherEncoding_; }

 private:
  void Line(std::string_view line, bool isAscii) {
    if (std::exchange(isFirst_, false)) startsAsUtf16_ = StartsAsUtf16(line);
    isUtf16_ = isUtf16_ || (startsAsUtf16_ && line.find('\0') != std::string_view::npos);
    if (isUtf16_) return;
    if (isAscii) {
      visitor_.Visit(number_++, line, line);
    } else if (encoding_ == TextEncoding::kUtf8) {
      Utf8Line(line);
    } else {
      Windows1252Line(line);
    }
  }

  [[nodiscard]] std::string_view WithoutMark(std::string_view line) const {
    const bool marked = number_ == 0 && line.starts_with(kByteOrderMark);
    return line.substr(marked ? kByteOrderMark.size() : 0);
  }

  void Utf8Line(std::string_view line) {
    if (isOtherEncoding_) return;
    line = WithoutMark(line);
    isOtherEncoding_ = !IsValidUtf8(line);
    if (!isOtherEncoding_) visitor_.Visit(number_++, line, line);
  }

  void Windows1252Line(std::string_view line) {
    // One wrong byte further down does not make text of a mark that an editor has left.
    line = WithoutMark(line);
    const std::string text = DecodeWindows1252(line);
    visitor_.Visit(number_++, line, text);
  }

  TextEncoding encoding_;
  EventLineVisitor& visitor_;
  LineSplitter lines_;
  long number_ = 0;
  bool openLineIsAscii_ = true;  // what has come of the line that is not yet at its end
  bool isFirst_ = true;
  bool startsAsUtf16_ = false;
  bool isUtf16_ = false;
  bool isOtherEncoding_ = false;
};

// Reads with `read` in one encoding after the other.
template <typename Read>
Status ReadInEitherEncoding(EventLineVisitor& visitor, Read read) {
  try {
    for (const TextEncoding encoding : {TextEncoding::kUtf8, TextEncoding::kWindows1252}) {
      visitor.Start();
      Pass pass(encoding, visitor);
      Status status = read([&](std::string_view piece) { return pass.Take(piece); });
      if (!status.ok()) return status;
      pass.Finish();
      if (pass.isUtf16()) return Status(StatusKind::kNotText);
      if (!pass.isOtherEncoding()) break;
    }
    return {};
  } catch (const std::bad_alloc&) {
    return Status(StatusKind::kTooLarge);
  }
}

// The bytes of a file as the answers of `change` want them; the same when no line changes.
std::string Changed(std::string_view present, const ChangeLine& change) {
  std::string content;
  content.reserve(present.size() + kLineEnd.size());
  if (present.starts_with(kByteOrderMark)) content += kByteOrderMark;
  bool changed = false;
  VisitRawLines(present, [&](std::size_t number, std::string_view line) {
    const LineChange what = change(number, line);
    if (what != LineChange::kKeep) changed = true;
    if (what == LineChange::kRemove) return;
    if (what == LineChange::kDropLastCharacter && !line.empty()) line.remove_suffix(1);
    content.append(line);
    if (what == LineChange::kAppendHiddenMark) content += '*';
    content.append(kLineEnd);
  });
  return changed ? content : std::string(present);
}

}  // namespace

Status ReadEventLines(FileSystem& files, const std::string& path, EventLineVisitor& visitor) {
  return ReadInEitherEncoding(visitor,
                              [&](const TakeBytes& take) { return files.Read(path, take); });
}

Status VisitEventLines(std::string_view content, EventLineVisitor& visitor) {
  return ReadInEitherEncoding(visitor, [&](const TakeBytes& take) {
    take(content);
    return Status();
  });
}

void VisitRawLines(std::string_view content,
                   const std::function<void(std::size_t number, std::string_view rawLine)>& visit) {
  std::size_t number = 0;
  const auto next = [&](std::string_view line) { visit(number++, line); };
  LineSplitter lines;
  lines.Take(content.substr(content.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0), next);
  lines.Finish(next);
}

Status RewriteEventsFile(FileSystem& files, const std::string& path,
                         const std::string& rescueFolder, const ChangeLine& change,
                         const LookAtFile& look) {
  constexpr int kMostTries = 3;
  for (int i = 1;; ++i) {
    std::string present;
    Status status = ReadFile(files, path, present);
    if (!status.ok()) return status;
    if (LooksLikeUtf16(present)) return Status(StatusKind::kNotText);
    if (look) look(present);
    const std::string content = Changed(present, change);
    if (content == present) return {};
    bool outdated = false;
    const auto beforeCommit = [&](const StagedFile& /*staged*/) {
      // Staging waits for the disk, time enough for somebody else to change the file.
      Status untouched = CheckUntouched(files, path, present);
      outdated = untouched.kind() == StatusKind::kBusy;
      return untouched;
    };
    status = ReplaceEventsFile(files, path, rescueFolder, present, content, beforeCommit).status;
    if (!outdated || i == kMostTries) return status;
  }
}

Status CreateNewEventsFile(FileSystem& files, MessageBox& messages, const std::string& path) {
  messages.Show("\"" + path + "\" does not exist.\n\n" +
                    "Tidewarden will now start from scratch with a new " + path + " file.",
                MessageButtons::kOk, MessageIcon::kNone);
  return files.CreateEmpty(path);
}

}  // namespace tidewarden
