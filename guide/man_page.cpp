#include "guide/man_page.h"

#include <algorithm>
#include <array>

#include "dates/text.h"
#include "guide/markdown.h"

namespace tidewarden {
namespace {

constexpr std::string_view kIncludeStart = "<!-- include ";
constexpr std::string_view kBelow = "below ";
constexpr std::string_view kIncludeEnd = " -->";
constexpr std::size_t kLineWidth = 78;
// A column of this heading needs no name before what it says.
constexpr std::string_view kPlainHeading = "What it does";

// --- Includes.

struct Include {
  std::string_view name;  // empty when the line is none
  bool isBelow = false;
};

Include ReadInclude(std::string_view line) {
  if (!line.starts_with(kIncludeStart) || !line.ends_with(kIncludeEnd)) return {};
  line.remove_prefix(kIncludeStart.size());
  line.remove_suffix(kIncludeEnd.size());
  const bool isBelow = line.starts_with(kBelow);
  if (isBelow) line.remove_prefix(kBelow.size());
  return {line, isBelow};
}

// "events.md" and "yearly" of "../guide/events.md#yearly".
struct Target {
  std::string_view file;
  std::string_view anchor;
};

Target ReadTarget(std::string_view name) {
  const std::size_t mark = std::min(name.find('#'), name.size());
  const std::string_view path = name.substr(0, mark);
  return {path.substr(path.rfind('/') + 1), name.substr(std::min(mark + 1, name.size()))};
}

// The lines of a section and of those below it; empty when there is none of that anchor.
std::string SectionLines(std::string_view text, std::string_view anchor) {
  std::string section;
  std::size_t level = 0;
  bool inCode = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.starts_with("```")) inCode = !inCode;
    const std::size_t marks = std::min(line.find_first_not_of('#'), line.size());
    if (marks > 0 && !inCode) {
      const bool isWanted = AnchorOf(PlainText(Trim(line.substr(marks)))) == anchor;
      if (level == 0 && isWanted) {
        level = marks;
      } else if (level > 0 && marks <= level) {
        break;
      }
    }
    if (level > 0) section.append(line).push_back('\n');
  }
  return section;
}

std::string WithoutFirstHeading(std::string_view text) {
  if (text.starts_with("# ")) text.remove_prefix(std::min(text.find('\n'), text.size()));
  return std::string(text);
}

std::string OneLevelDown(std::string_view text) {
  std::string out;
  bool inCode = false;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.starts_with("```")) inCode = !inCode;
    if (line.starts_with('#') && !inCode) out.push_back('#');
    out.append(line).push_back('\n');
  }
  return out;
}

std::string Included(std::string_view name,
                     const std::function<std::string(std::string_view)>& read) {
  const std::size_t mark = std::min(name.find('#'), name.size());
  const std::string text = read(name.substr(0, mark));
  std::string part =
      mark == name.size() ? WithoutFirstHeading(text) : SectionLines(text, name.substr(mark + 1));
  if (part.empty()) part = std::string(kMissingInclude) + " " + std::string(name);
  return part;
}

// --- Escapes.

void AppendEscaped(std::string& out, char32_t character) {
  constexpr std::string_view kHexDigits = "0123456789ABCDEF";
  std::string digits;
  for (; character > 0; character >>= 4U) digits.push_back(kHexDigits[character & 15U]);
  while (digits.size() < 4) digits.push_back('0');
  std::reverse(digits.begin(), digits.end());
  out.append("\\[u").append(digits).push_back(']');
}

// In code a "-" is the sign that is typed; in prose it is a hyphen.
std::string Escaped(std::string_view text, bool isCode) {
  std::string out;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    switch (character) {
      case U'\\':
        out += "\\e";
        break;
      case U'-':
        out += isCode ? "\\-" : "-";
        break;
      case U'\'':
        out += isCode ? "\\(aq" : "'";
        break;
      case U'"':
        out += "\\(dq";
        break;
      case U'`':
        out += "\\(ga";
        break;
      case U'^':
        out += "\\(ha";
        break;
      case U'~':
        out += "\\(ti";
        break;
      default:
        if (character < 0x80) {
          out.push_back(static_cast<char>(character));
        } else {
          AppendEscaped(out, character);
        }
    }
  }
  return out;
}

// Of several blanks in a row each is kept, which a filled paragraph would make one.
std::string WithBlanksKept(std::string_view code) {
  std::string out;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const bool isOneOfSeveral =
        code[i] == ' ' && (code.substr(i + 1, 1) == " " || (i > 0 && code[i - 1] == ' '));
    out += isOneOfSeveral ? std::string_view("\\~") : code.substr(i, 1);
  }
  return out;
}

std::string InFont(char font, const std::string& text) {
  return std::string("\\f") + font + text + "\\fR";
}

// A title is found "in" a page; other words are left as the sentence has them.
std::string Pointing(const std::string& linkText, const std::string& page) {
  const bool isTitle = !linkText.empty() && linkText[0] >= 'A' && linkText[0] <= 'Z';
  const std::string name = InFont('B', Escaped(page, true));
  return isTitle ? " in " + name : " (see " + name + ")";
}

// --- The page.

class PageWriter {
 public:
  explicit PageWriter(const ManPlaces& places) : places_(places) {}

  std::string Write(const ManHead& head, std::string_view markdown) {
    page_ = head.name + "(" + head.section + ")";
    out_ = ".TH " + ToUpper(Escaped(head.name, true)) + " " + head.section + " " + head.date +
           " \"Tidewarden " + head.version + "\" \"Tidewarden Manual\"\n.nh\n.ad l\n";
    for (const Block& block : ReadMarkdown(markdown)) Take(block);
    return std::move(out_);
  }

 private:
  void Take(const Block& block) {
    switch (block.kind) {
      case BlockKind::kHeading:
        Heading(block);
        break;
      case BlockKind::kParagraph:
        Paragraph(block);
        break;
      case BlockKind::kBullet:
        Item("\\(bu", "3", block.text);
        break;
      case BlockKind::kNumbered: {
        std::string mark;
        AppendNumber(mark, block.number);
        Item(mark + ".", "4", block.text);
        break;
      }
      case BlockKind::kCode:
        Code(block);
        break;
      case BlockKind::kTable:
        Table(block);
        break;
    }
    afterHeading_ = block.kind == BlockKind::kHeading;
  }

  [[nodiscard]] std::string Inline(std::string_view text) const {
    std::string out;
    for (const Span& span : ReadSpans(text)) {
      switch (span.kind) {
        case SpanKind::kText:
          out += Escaped(span.text, false);
          break;
        case SpanKind::kCode:
          out += InFont('B', WithBlanksKept(Escaped(span.text, true)));
          break;
        case SpanKind::kStrong:
          out += InFont('B', Escaped(span.text, false));
          break;
        case SpanKind::kStressed:
          out += InFont('I', Escaped(span.text, false));
          break;
        case SpanKind::kPicture:
          break;
        case SpanKind::kLink:
          out += Escaped(span.text, false) + BehindLink(span);
          break;
      }
    }
    return out;
  }

  [[nodiscard]] std::string BehindLink(const Span& link) const {
    if (link.target.starts_with("https://")) {
      return link.target == link.text ? "" : " (" + Escaped(link.target, true) + ")";
    }
    const std::string page = places_.PageOf(link.target, page_);
    return page.empty() || page == page_ ? "" : Pointing(link.text, page);
  }

  void Heading(const Block& block) {
    const std::string plain = PlainText(block.text);
    if (block.number == 1) {
      const std::size_t colon = std::min(plain.find(": "), plain.size());
      Line(".SH NAME");
      Line(Escaped(plain.substr(0, colon), true) + " \\- " +
           Escaped(plain.substr(std::min(colon + 2, plain.size())), false));
    } else if (block.number == 2) {
      Line(".SH " + ToUpper(plain));
    } else {
      Line(".SS " + Escaped(plain, false));
    }
  }

  void Paragraph(const Block& block) {
    const std::string text = Inline(block.text);
    if (Trim(text).empty()) return;
    if (!afterHeading_) Line(".PP");
    Wrapped(text);
  }

  void Item(const std::string& mark, const std::string& indent, const std::string& text) {
    Line(".IP " + mark + " " + indent);
    Wrapped(Inline(text));
  }

  void Code(const Block& block) {
    if (!afterHeading_) Line(".PP");
    Line(".RS 4");
    Line(".nf");
    std::string_view text = block.text;
    while (!text.empty()) {
      const std::size_t end = std::min(text.find('\n'), text.size());
      Line(Guarded(Escaped(text.substr(0, end), true)));
      text.remove_prefix(std::min(end + 1, text.size()));
    }
    Line(".fi");
    Line(".RE");
  }

  void Table(const Block& block) {
    if (block.rows.empty()) return;
    const std::vector<std::string>& heads = block.rows.front();
    for (std::size_t i = 1; i < block.rows.size(); ++i) {
      const std::vector<std::string>& row = block.rows[i];
      Line(".TP");
      Wrapped(row.empty() ? std::string("\\&") : Inline(row.front()));
      if (row.size() < 2) Line("\\&");
      for (std::size_t column = 1; column < row.size(); ++column) {
        if (column > 1) Line(".br");
        // With two columns the heading tells what the second one is; with more, each needs its own.
        const bool isNamed =
            row.size() > 2 && column < heads.size() && heads[column] != kPlainHeading;
        Wrapped((isNamed ? InFont('I', Inline(heads[column])) + ": " : std::string()) +
                Inline(row[column]));
      }
    }
  }

  // A line that begins with a dot or an apostrophe would be a command.
  static std::string Guarded(const std::string& text) {
    return text.starts_with('.') || text.starts_with('\'') ? "\\&" + text : text;
  }

  void Wrapped(std::string_view text) {
    std::string line;
    while (!text.empty()) {
      const std::size_t end = std::min(text.find(' '), text.size());
      const std::string_view word = text.substr(0, end);
      text.remove_prefix(std::min(end + 1, text.size()));
      if (word.empty()) continue;
      if (!line.empty() && line.size() + 1 + word.size() > kLineWidth) {
        Line(Guarded(line));
        line.clear();
      }
      if (!line.empty()) line.push_back(' ');
      line += word;
    }
    if (!line.empty()) Line(Guarded(line));
  }

  void Line(std::string_view line) { out_.append(line).push_back('\n'); }

  const ManPlaces& places_;
  std::string page_;
  std::string out_;
  bool afterHeading_ = false;
};

}  // namespace

std::string PutIncludesIn(std::string_view page,
                          const std::function<std::string(std::string_view)>& read) {
  std::string out;
  while (!page.empty()) {
    const std::size_t end = std::min(page.find('\n'), page.size());
    const std::string_view line = page.substr(0, end);
    page.remove_prefix(std::min(end + 1, page.size()));
    const Include include = ReadInclude(line);
    if (include.name.empty()) {
      out += line;
    } else {
      const std::string part = Included(include.name, read);
      out += include.isBelow ? OneLevelDown(part) : part;
    }
    out.push_back('\n');
  }
  return out;
}

void ManPlaces::Add(const std::string& page, std::string_view source) {
  while (!source.empty()) {
    const std::size_t end = std::min(source.find('\n'), source.size());
    const Include include = ReadInclude(source.substr(0, end));
    source.remove_prefix(std::min(end + 1, source.size()));
    if (include.name.empty()) continue;
    const Target target = ReadTarget(include.name);
    parts_.push_back({std::string(target.file), std::string(target.anchor), page});
  }
}

std::string ManPlaces::PageOf(std::string_view target, const std::string& from) const {
  if (target.find(':') != std::string_view::npos) return {};
  const Target wanted = ReadTarget(target);
  if (wanted.file.empty()) return from;
  std::string found;
  for (const Part& part : parts_) {
    if (part.file != wanted.file) continue;
    if (!wanted.anchor.empty() && !part.anchor.empty() && part.anchor != wanted.anchor) continue;
    if (part.page == from) return from;
    if (found.empty()) found = part.page;
  }
  return found;
}

std::string WriteManPage(const ManHead& head, std::string_view markdown, const ManPlaces& places) {
  return PageWriter(places).Write(head, markdown);
}

}  // namespace tidewarden
