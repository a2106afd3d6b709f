#include "core/status.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tidewarden {
namespace {

constexpr StatusKind kFailures[] = {
    StatusKind::kNotFound, StatusKind::kNoPermission, StatusKind::kIsFolder,
    StatusKind::kNotAFile, StatusKind::kNotAFolder,   StatusKind::kNotText,
    StatusKind::kNoSpace,  StatusKind::kBusy,         StatusKind::kReadOnly,
    StatusKind::kTooLarge, StatusKind::kInputOutput};

TEST(Status, IsOkUnlessToldOtherwise) {
  EXPECT_TRUE(Status().ok());
  EXPECT_EQ(Status().kind(), StatusKind::kOk);
  EXPECT_EQ(Status().detail(), "");
  for (const StatusKind kind : kFailures) {
    EXPECT_FALSE(Status(kind).ok());
    EXPECT_EQ(Status(kind).kind(), kind);
  }
}

TEST(Status, IsWordedAsOnePlainSentenceWithoutAFullStop) {
  std::set<std::string> texts;
  for (const StatusKind kind : kFailures) {
    const std::string text = DescribeStatus(Status(kind));
    EXPECT_FALSE(text.empty());
    EXPECT_FALSE(text.ends_with('.')) << text;
    EXPECT_EQ(text.find('\n'), std::string::npos) << text;
    texts.insert(text);
  }
  EXPECT_EQ(texts.size(), std::size(kFailures)) << "two kinds read the same";
  EXPECT_EQ(DescribeStatus(Status()), "done");
  EXPECT_EQ(DescribeStatus(Status(StatusKind::kNoPermission)), "permission denied");
}

TEST(Status, AnUnexpectedFailureIsWordedByTheSystem) {
  EXPECT_EQ(DescribeStatus(Status(StatusKind::kInputOutput, "Too many levels of symbolic links")),
            "Too many levels of symbolic links");
}

}  // namespace
}  // namespace tidewarden
