#include "reminder/daily_quote.h"

#include <cmath>
#include <cstddef>
#include <limits>
#include <string_view>
#include <utility>

#include "core/events_file.h"
#include "core/find_file.h"
#include "core/settings_keys.h"

namespace tidewarden {
namespace {

constexpr std::uint64_t kMostBytes = std::uint64_t{4} * 1024 * 1024;
constexpr std::size_t kMostQuotes = std::size_t{std::numeric_limits<std::int16_t>::max()} + 1;
constexpr std::string_view kComment = "//";
constexpr std::string_view kNotSign = "\u00AC";
constexpr std::string_view kLineBreak = "\r\n";

std::string DefaultPath(const ProgramFolders& folders) {
  return folders.program + (folders.style == PathStyle::kPosix ? "/Quotes/Inspiration.txt"
                                                               : "\\Quotes\\Inspiration.txt");
}

std::string WithLineBreaks(std::string_view line) {
  std::string quote;
  for (std::size_t at = line.find(kNotSign); at != std::string_view::npos;
       at = line.find(kNotSign)) {
    quote.append(line.substr(0, at)).append(kLineBreak);
    line.remove_prefix(at + kNotSign.size());
  }
  return quote.append(line);
}

class QuoteCollector : public EventLineVisitor {
 public:
  explicit QuoteCollector(std::vector<std::string>& quotes) : quotes_(quotes) {}

  void Start() override { quotes_.clear(); }
  void Visit(long /*number*/, std::string_view /*rawLine*/, std::string_view text) override {
    if (text.empty() || text.starts_with(kComment) || quotes_.size() == kMostQuotes) return;
    quotes_.push_back(WithLineBreaks(text));
  }

 private:
  std::vector<std::string>& quotes_;
};

// The setting is read in lower case; only Windows does not mind.
std::string QuotesFile(FileSystem& files, const std::string& stored,
                       const ProgramFolders& folders) {
  std::string path = FromProgramFolder(stored, folders);
  if (folders.style == PathStyle::kWindows) return path;
  std::string found;
  static_cast<void>(FindFileInAnyCase(files, path, found).ok());
  return found;
}

}  // namespace

DailyQuote::DailyQuote(SettingsStore& settings, FileSystem& files, RandomNumbers& random,
                       ProgramFolders folders)
    : settings_(settings), files_(files), random_(random), folders_(std::move(folders)) {}

void DailyQuote::LoadDailyQuote(LocalTime now) {
  isVisible_ = false;
  const std::string stored =
      modGetSetSaveSet::Get(settings_, settings::kQuotesPath, DefaultPath(folders_));
  const std::string show = modGetSetSaveSet::Get(settings_, settings::kShowDailyQuotes);
  quotes_.clear();
  if (stored.empty() || !modGetSetSaveSet::isTrue(show)) return;

  const std::string path = QuotesFile(files_, stored, folders_);
  FileStamp stamp;
  if (!files_.GetStamp(path, stamp).ok() || stamp.size > kMostBytes) return;
  QuoteCollector collector(quotes_);
  if (!ReadEventLines(files_, path, collector).ok()) quotes_.clear();
  if (quotes_.empty()) return;

  random_.Seed(SeedFromTimeOfDay(now));
  Pick();
  isVisible_ = true;
}

void DailyQuote::ShowAnother() {
  if (isVisible_) Pick();
}

void DailyQuote::Pick() {
  text_ = quotes_[static_cast<std::size_t>(std::floor(random_.Draw() * quoteLastIndex()))];
}

}  // namespace tidewarden
