#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "core/event_check.h"

namespace tidewarden::cli {
namespace {

std::string AsText(const std::vector<Finding>& findings, const std::string& path) {
  std::string text;
  for (const Finding& finding : findings) {
    text += path + ":" + std::to_string(finding.line) + ":" + std::to_string(finding.column) + ": ";
    text += finding.kind == FindingKind::kRejected ? "rejected: " : "warning: ";
    text += finding.reason + " (" + finding.hint + ")\n";
  }
  return text;
}

std::string AsJson(const std::vector<Finding>& findings, const std::string& path) {
  nlohmann::ordered_json items = nlohmann::ordered_json::array();
  for (const Finding& finding : findings) {
    nlohmann::ordered_json item;
    item["file"] = path;
    item["line"] = finding.line;
    item["column"] = finding.column;
    item["finding"] = FindingName(finding.kind);
    item["reason"] = finding.reason;
    item["hint"] = finding.hint;
    items.push_back(std::move(item));
  }
  return items.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

std::string Counted(std::ptrdiff_t count, const std::string& what, const std::string& plural) {
  return std::to_string(count) + " " + (count == 1 ? what : plural);
}

}  // namespace

ExitCode RunCheck(const CommonOptions& options) {
  World world;
  if (const auto code = Open(options, world)) return *code;
  const std::string path = EventsFile(options, world);
  std::vector<Finding> findings;
  const Status status = CheckEvents(*world.files, path, world.format, world.now.date, findings);
  if (!status.ok()) {
    Complain(path + ": " + DescribeStatus(status));
    return kCannotRead;
  }
  const auto rejected = std::count_if(findings.begin(), findings.end(), [](const Finding& f) {
    return f.kind == FindingKind::kRejected;
  });
  if (!options.json) {
    const auto warnings = static_cast<std::ptrdiff_t>(findings.size()) - rejected;
    Complain(path + ": " + Counted(rejected, "rejected line", "rejected lines") + ", " +
             Counted(warnings, "warning", "warnings"));
  }
  return Print(options.json ? AsJson(findings, path) : AsText(findings, path),
               findings.empty() ? kDone : kFindings);
}

}  // namespace tidewarden::cli
