#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <thread>

#include "platform/windows/windows_api.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_handles.h"
#include "platform/windows/windows_staged_files.h"
#include "platform/windows/windows_text.h"
#include "tests/support/temporary_folder.h"
#include "tests/support/windows_child.h"

// Needs the types of windows.h.
#include <sddl.h>

namespace tidewarden::test {
namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::StartsWith;

// Holds a file as another program would.
FileHandle Hold(const std::string& path, DWORD access, DWORD share) {
  FileHandle file(
      ::CreateFileW(WidePath(path).c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr));
  EXPECT_TRUE(file.ok()) << ::GetLastError();
  return file;
}

class WindowsFiles : public ::testing::Test {
 protected:
  std::string ReadBack(const std::string& path) {
    std::string text;
    const Status status = ReadFile(files_, path, text);
    return status.ok() ? text : DescribeStatus(status);
  }

  StatusKind Replace(const std::string& path, std::string_view content) {
    return ReplaceFile(files_, path, content).kind();
  }

  TemporaryFolder folder_;
  WindowsFileSystem files_;
  const std::string path_ = folder_ / "dates.txt";
};

// --- Replacing.

TEST_F(WindowsFiles, AFileIsReplacedWholeAndNothingStaysBesideIt) {
  EXPECT_EQ(Replace(path_, "one\r\n"), StatusKind::kOk);
  EXPECT_EQ(folder_.Read("dates.txt"), "one\r\n");
  EXPECT_EQ(Replace(path_, std::string("two\n\0\xFF", 6)), StatusKind::kOk);
  EXPECT_EQ(folder_.Read("dates.txt"), std::string("two\n\0\xFF", 6));
  EXPECT_EQ(Replace(path_, ""), StatusKind::kOk);
  EXPECT_EQ(folder_.Read("dates.txt"), "");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(WindowsFiles, EqualContentIsNotWritten) {
  folder_.Write("dates.txt", "old");
  const FileState before = LookAt(path_);
  EXPECT_EQ(Replace(path_, "old"), StatusKind::kOk);
  EXPECT_EQ(LookAt(path_), before);
}

TEST_F(WindowsFiles, ContentThatIsGivenUpLeavesNothing) {
  folder_.Write("dates.txt", "old");
  const FileState before = LookAt(path_);
  std::unique_ptr<StagedFile> staged;
  ASSERT_TRUE(files_.Stage(path_, "new", staged).ok());
  EXPECT_TRUE(staged->ReplacesAtOnce());
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre(".dates.txt.new", "dates.txt"));
  staged.reset();
  EXPECT_EQ(LookAt(path_), before);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(WindowsFiles, AReaderWhoForbidsItIsWaitedForAMoment) {
  folder_.Write("dates.txt", "old");
  FileHandle reader = Hold(path_, GENERIC_READ, FILE_SHARE_READ);
  std::thread closer([&] {
    ::Sleep(300);
    reader.Close();
  });
  EXPECT_EQ(Replace(path_, "new"), StatusKind::kOk);
  closer.join();
  EXPECT_EQ(folder_.Read("dates.txt"), "new");
}

TEST_F(WindowsFiles, AReaderWhoForbidsItForLongerMakesItFailAndNothingIsChanged) {
  folder_.Write("dates.txt", "old");
  const FileState before = LookAt(path_);
  std::unique_ptr<StagedFile> staged;
  ASSERT_TRUE(files_.Stage(path_, "new", staged).ok());
  {
    const FileHandle reader = Hold(path_, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE);
    const ULONGLONG start = ::GetTickCount64();
    EXPECT_EQ(staged->Commit().kind(), StatusKind::kBusy);
    EXPECT_GE(::GetTickCount64() - start, 900U);
    EXPECT_EQ(Replace(path_, "other"), StatusKind::kBusy) << "while the first is still staged";
    staged.reset();
  }
  EXPECT_EQ(LookAt(path_), before);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
}

TEST_F(WindowsFiles, AReaderOfThisProgramSeesOneContentToItsEnd) {
  folder_.Write("dates.txt", std::string(100'000, 'o'));
  std::string seen;
  StatusKind replaced = StatusKind::kOk;
  const Status status = files_.Read(path_, [&](std::string_view piece) {
    if (seen.empty()) replaced = Replace(path_, "new");
    seen += piece;
    return true;
  });
  EXPECT_TRUE(status.ok());
  EXPECT_EQ(seen, std::string(100'000, 'o'));
  EXPECT_TRUE(replaced == StatusKind::kOk || replaced == StatusKind::kBusy);
  EXPECT_EQ(folder_.Read("dates.txt"),
            replaced == StatusKind::kOk ? "new" : std::string(100'000, 'o'));
}

TEST_F(WindowsFiles, OnlyOneProgramStagesAFileAtATime) {
  std::unique_ptr<StagedFile> first;
  std::unique_ptr<StagedFile> second;
  ASSERT_TRUE(files_.Stage(path_, "first", first).ok());
  EXPECT_EQ(files_.Stage(path_, "second", second).kind(), StatusKind::kBusy);
  EXPECT_EQ(second, nullptr);
  EXPECT_TRUE(first->Commit().ok());
  ASSERT_TRUE(files_.Stage(path_, "second", second).ok()) << "the first is in its place";
  EXPECT_TRUE(second->Commit().ok());
  EXPECT_EQ(folder_.Read("dates.txt"), "second");
}

TEST_F(WindowsFiles, WhatAKilledProcessLeftIsRemoved) {
  folder_.Write("dates.txt", "old");
  folder_.Write(".dates.txt.new", "half of somethi");
  EXPECT_EQ(Replace(path_, "new"), StatusKind::kOk);
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt"));
  EXPECT_EQ(folder_.Read("dates.txt"), "new");
}

TEST_F(WindowsFiles, AWriteProtectedFileStays) {
  folder_.Write("dates.txt", "old");
  folder_.SetPermissions("dates.txt", 0400);
  const FileState before = LookAt(path_);
  EXPECT_EQ(Replace(path_, "new"), StatusKind::kNoPermission);
  EXPECT_EQ(LookAt(path_), before);
}

TEST_F(WindowsFiles, AHiddenFileStaysHidden) {
  folder_.Write("dates.txt", "old");
  ASSERT_NE(::SetFileAttributesW(WidePath(path_).c_str(), FILE_ATTRIBUTE_HIDDEN), 0);
  EXPECT_EQ(Replace(path_, "new"), StatusKind::kOk);
  EXPECT_NE(::GetFileAttributesW(WidePath(path_).c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
}

TEST_F(WindowsFiles, AnotherNameOfAFileKeepsTheOldContent) {
  folder_.Write("dates.txt", "old");
  ASSERT_TRUE(files_.Link(path_, folder_ / "datesbk1.txt").ok());
  EXPECT_EQ(Replace(path_, "new"), StatusKind::kOk);
  EXPECT_EQ(folder_.Read("datesbk1.txt"), "old");
  EXPECT_EQ(folder_.Read("dates.txt"), "new");
  EXPECT_FALSE(files_.Link(path_, folder_ / "datesbk1.txt").ok()) << "the name is taken";
  EXPECT_EQ(folder_.Read("datesbk1.txt"), "old");
}

TEST_F(WindowsFiles, InAFolderThatTakesNoFilesTheContentIsWrittenIntoTheFile) {
  folder_.Write("dates.txt", "a longer old content");
  const unsigned long long identity = LookAt(path_).identity;
  for (const std::string content : {"short", "", "and a content that is longer than the old one"}) {
    std::unique_ptr<StagedFile> staged;
    ASSERT_TRUE(StageInPlace(WidePath(path_), content, staged).ok());
    EXPECT_FALSE(staged->ReplacesAtOnce());
    EXPECT_NE(folder_.Read("dates.txt"), content);
    EXPECT_TRUE(staged->Commit().ok());
    staged.reset();
    EXPECT_EQ(folder_.Read("dates.txt"), content);
    EXPECT_EQ(LookAt(path_).identity, identity);
  }
}

// A folder of a network that may be changed, but not handed on.
TEST(WindowsReplacement, IsCreatedWithTheRightsThatThePlaceGrants) {
  TemporaryFolder folder;
  const auto grants = [&](DWORD refused, DWORD reason, std::vector<DWORD>& asked) {
    return CreateReplacement([&](DWORD rights) -> HANDLE {
             asked.push_back(rights & (WRITE_DAC | WRITE_OWNER));
             EXPECT_EQ(rights & (GENERIC_READ | GENERIC_WRITE | DELETE),
                       GENERIC_READ | GENERIC_WRITE | DELETE);
             if ((rights & refused) != 0) {
               ::SetLastError(reason);
               return INVALID_HANDLE_VALUE;
             }
             return ::CreateFileW(WidePath(folder / "new").c_str(), rights, 0, nullptr,
                                  CREATE_ALWAYS, 0, nullptr);
           })
        .ok();
  };
  const DWORD denied = ERROR_ACCESS_DENIED;
  std::vector<DWORD> asked;
  EXPECT_TRUE(grants(0, denied, asked));
  EXPECT_THAT(asked, ElementsAre(WRITE_DAC | WRITE_OWNER));
  asked.clear();
  EXPECT_TRUE(grants(WRITE_OWNER, denied, asked));
  EXPECT_THAT(asked, ElementsAre(WRITE_DAC | WRITE_OWNER, WRITE_DAC));
  asked.clear();
  EXPECT_TRUE(grants(WRITE_DAC | WRITE_OWNER, denied, asked));
  EXPECT_THAT(asked, ElementsAre(WRITE_DAC | WRITE_OWNER, WRITE_DAC, 0U));
  asked.clear();
  EXPECT_FALSE(grants(GENERIC_WRITE, denied, asked));
  EXPECT_EQ(::GetLastError(), denied);
  EXPECT_EQ(asked.size(), 3U);
  asked.clear();
  EXPECT_FALSE(grants(WRITE_DAC, ERROR_FILE_EXISTS, asked)) << "that is about no right";
  EXPECT_EQ(::GetLastError(), DWORD{ERROR_FILE_EXISTS});
  EXPECT_EQ(asked.size(), 1U);
}

// --- Names of every kind.

TEST_F(WindowsFiles, PathsMayBeLongAndOfEveryAlphabet) {
  const std::string deep = std::string(120, 'a') + "/" + std::string(120, 'b');
  for (const std::string& name : {deep + "/" + std::string(100, 'c') + ".txt",
                                  std::string("Übung/Жанна 日本 𝄞.txt"), std::string("a b/.txt")}) {
    SCOPED_TRACE(name);
    EXPECT_TRUE(files_.CreateEmpty(folder_ / name).ok());
    EXPECT_EQ(Replace(folder_ / name, "text"), StatusKind::kOk);
    EXPECT_EQ(ReadBack(folder_ / name), "text");
    FileStamp stamp;
    EXPECT_TRUE(files_.GetStamp(folder_ / name, stamp).ok());
    EXPECT_EQ(stamp.size, 4U);
    EXPECT_TRUE(files_.Remove(folder_ / name).ok());
    EXPECT_EQ(files_.GetStamp(folder_ / name, stamp).kind(), StatusKind::kNotFound);
  }
}

TEST_F(WindowsFiles, BothSeparatorsAreUnderstood) {
  folder_.Write("sub/dates.txt", "text");
  EXPECT_EQ(ReadBack(folder_.path() + "/sub/dates.txt"), "text");
  EXPECT_EQ(ReadBack(folder_.path() + "\\sub/../sub\\.\\dates.txt"), "text");
}

TEST_F(WindowsFiles, EveryPathToAFileHasOneFullPath) {
  folder_.Write("sub/dates.txt", "text");
  const std::string full = files_.FullPath(folder_.path() + "\\sub\\dates.txt");
  EXPECT_TRUE(full.ends_with("\\sub\\dates.txt")) << full;
  EXPECT_EQ(files_.FullPath(full), full);
  EXPECT_EQ(files_.FullPath(folder_.path() + "/sub/../sub\\.\\dates.txt"), full);
  EXPECT_NE(files_.FullPath(folder_.path() + "\\dates.txt"), full);
}

TEST_F(WindowsFiles, WhatIsNoFileIsToldApart) {
  folder_.MakeFolder("folder");
  folder_.Write("file.txt", "text");
  std::string text;
  const struct {
    std::string path;
    StatusKind kind;
  } cases[] = {{folder_ / "missing.txt", StatusKind::kNotFound},
               {folder_ / "no/such/folder.txt", StatusKind::kNotFound},
               {folder_ / "file.txt/below.txt", StatusKind::kNotFound},
               {folder_ / "what?.txt", StatusKind::kNotFound},
               {folder_ / "folder", StatusKind::kIsFolder},
               {"NUL", StatusKind::kNotAFile}};
  for (const auto& [path, kind] : cases) {
    SCOPED_TRACE(path);
    EXPECT_EQ(ReadFile(files_, path, text).kind(), kind);
  }
  std::unique_ptr<StagedFile> staged;
  EXPECT_EQ(files_.Stage(folder_ / "folder", "text", staged).kind(), StatusKind::kIsFolder);
  EXPECT_EQ(files_.Stage("NUL", "text", staged).kind(), StatusKind::kNotAFile);
  EXPECT_EQ(files_.CreateEmpty(folder_ / "file.txt/below.txt").kind(), StatusKind::kNotAFolder);
}

// A letter that no drive has, with its colon.
std::string UnusedDrive() {
  const DWORD drives = ::GetLogicalDrives();
  for (int i = 25; i >= 0; --i) {
    if ((drives >> static_cast<unsigned>(i) & 1U) == 0) return {static_cast<char>('A' + i), ':'};
  }
  return {};
}

TEST_F(WindowsFiles, OnADriveThatIsNotThereNothingIsTakenForMissing) {
  const std::string drive = UnusedDrive();
  ASSERT_FALSE(drive.empty());
  const std::string longName = std::string(200, 'a') + "\\" + std::string(200, 'b') + ".txt";
  for (const std::string& below : {std::string("\\dates.txt"), std::string("\\no\\such\\dates.txt"),
                                   std::string("/dates.txt"), "\\" + longName}) {
    SCOPED_TRACE(drive + below);
    std::string text = "kept";
    FileStamp stamp;
    for (const Status& status :
         {ReadFile(files_, drive + below, text), files_.GetStamp(drive + below, stamp)}) {
      EXPECT_EQ(status.kind(), StatusKind::kInputOutput);
      EXPECT_EQ(DescribeStatus(status), "the drive is not there");
    }
    EXPECT_EQ(text, "kept");
  }
  FileStamp stamp;
  for (const std::string& missing : {std::string("C:\\no such file.txt"),
                                     std::string("C:\\no\\such\\folder.txt"), "C:\\" + longName}) {
    EXPECT_EQ(files_.GetStamp(missing, stamp).kind(), StatusKind::kNotFound) << missing;
  }
}

// --- The rest of the port.

TEST_F(WindowsFiles, NamesAreListedInTheOrderOfTheirCodePoints) {
  for (const char* name : {"b", "Ж.txt", ".hidden", "B", "ä"}) folder_.Write(name, "");
  folder_.MakeFolder("c");
  std::vector<std::string> names;
  EXPECT_TRUE(files_.ListNames(folder_.path(), names).ok());
  // Here "b" and "B" are one name.
  EXPECT_THAT(names, ElementsAre(".hidden", "b", "c", "ä", "Ж.txt"));
  EXPECT_TRUE(files_.ListNames(folder_ / "c", names).ok());
  EXPECT_THAT(names, IsEmpty());
  names = {"kept"};
  EXPECT_EQ(files_.ListNames(folder_ / "b", names).kind(), StatusKind::kNotFound);
  EXPECT_EQ(files_.ListNames(folder_ / "missing", names).kind(), StatusKind::kNotFound);
  EXPECT_THAT(names, ElementsAre("kept"));
}

TEST_F(WindowsFiles, CreatingHarmsNoFileThatIsThere) {
  folder_.Write("dates.txt", "old");
  EXPECT_TRUE(files_.CreateEmpty(path_).ok());
  EXPECT_EQ(folder_.Read("dates.txt"), "old");
  EXPECT_TRUE(files_.CreateEmpty(folder_ / "new/deep/dates.txt").ok());
  EXPECT_EQ(folder_.Read("new/deep/dates.txt"), "");
  EXPECT_TRUE(files_.CanCreateIn(folder_ / "new"));
  EXPECT_FALSE(files_.CanCreateIn(folder_ / "missing"));
  EXPECT_FALSE(files_.CanCreateIn(path_));
}

TEST_F(WindowsFiles, ARenameTakesThePlaceOfAFile) {
  folder_.Write("one.txt", "1");
  folder_.Write("two.txt", "2");
  EXPECT_TRUE(files_.Rename(folder_ / "one.txt", folder_ / "two.txt").ok());
  EXPECT_EQ(folder_.Read("two.txt"), "1");
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("two.txt"));
  EXPECT_EQ(files_.Rename(folder_ / "one.txt", path_).kind(), StatusKind::kNotFound);
}

TEST_F(WindowsFiles, RemovingWhatIsNotThereIsFine) {
  EXPECT_TRUE(files_.Remove(path_).ok());
  folder_.MakeFolder("folder");
  EXPECT_EQ(files_.Remove(folder_ / "folder").kind(), StatusKind::kIsFolder);
  EXPECT_TRUE(folder_.Exists("folder"));
}

TEST_F(WindowsFiles, AStampTellsAChange) {
  folder_.Write("dates.txt", "one");
  FileStamp before;
  FileStamp after;
  ASSERT_TRUE(files_.GetStamp(path_, before).ok());
  ASSERT_TRUE(files_.GetStamp(path_, after).ok());
  EXPECT_EQ(before, after);
  EXPECT_EQ(Replace(path_, "two"), StatusKind::kOk);
  ASSERT_TRUE(files_.GetStamp(path_, after).ok());
  EXPECT_NE(before, after);
}

// --- Who may read a file.

TEST(WindowsPrivacy, IsGivenOnTheVolumeOfWindowsAlone) {
  const struct {
    const wchar_t* path;
    bool isPrivate;
  } cases[] = {{L"", true},  // no file
               {L"C:\\dates.txt", true},
               {L"C:\\ProgramData\\print.htm", true},
               {L"c:\\no\\such\\folder\\dates.txt", true},
               {L"\\\\?\\C:\\no such folder\\dates.txt", true},
               {L"Z:\\dates.txt", false},
               {L"Z:\\tmp\\dates.txt", false},
               {L"\\\\?\\Z:\\tmp\\dates.txt", false},
               {L"Q:\\not there\\dates.txt", false},
               {L"\\\\server\\share\\dates.txt", false},
               {L"\\\\?\\UNC\\server\\share\\dates.txt", false}};
  for (const auto& [path, isPrivate] : cases) {
    SCOPED_TRACE(Narrow(path));
    EXPECT_EQ(PrivateSecurity(path).get() != nullptr, isPrivate);
  }
}

TEST(WindowsPrivacy, LetsTheUserTheSystemAndAdministratorsIn) {
  PrivateSecurity security(L"C:\\dates.txt");
  ASSERT_NE(security.get(), nullptr);
  wchar_t* text = nullptr;
  ASSERT_NE(::ConvertSecurityDescriptorToStringSecurityDescriptorW(
                security.get()->lpSecurityDescriptor, SDDL_REVISION_1, DACL_SECURITY_INFORMATION,
                &text, nullptr),
            0);
  const std::string access = Narrow(text);
  ::LocalFree(text);
  // Three entries, of which none is for everybody, for guests or for the users of the computer.
  EXPECT_THAT(access, StartsWith("D:P(A;OICI;FA;;;S-1-5-21-"));
  EXPECT_THAT(access, EndsWith(")(A;OICI;FA;;;SY)(A;OICI;FA;;;BA)"));
  EXPECT_EQ(std::count(access.begin(), access.end(), '('), 3);
}

// --- Locks between processes.

TEST_F(WindowsFiles, ALockIsFreeWhenItsHolderIsKilled) {
  Child holder(TIDEWARDEN_TEST_WINDOWS_HELPER, {"lock", path_});
  ASSERT_EQ(holder.ReadLine(), "locked");
  std::unique_ptr<FileLock> lock;
  EXPECT_EQ(files_.Lock(path_, lock).kind(), StatusKind::kBusy);
  holder.Kill();
  EXPECT_TRUE(files_.Lock(path_, lock).ok());
  EXPECT_THAT(NamesIn(folder_.path()), ElementsAre("dates.txt.lock"));

  Child other(TIDEWARDEN_TEST_WINDOWS_HELPER, {"lock", path_});
  EXPECT_EQ(other.ReadLine(), "refused");
}

}  // namespace
}  // namespace tidewarden::test
