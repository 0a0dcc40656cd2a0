// StdFile: opening, buffering, changing direction, lines, places, times and failures.
#include "foundation/std_file.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "foundation/file_name.h"

namespace zt {
namespace {

constexpr int kUpdate = StdFile::kReadWrite | StdFile::kWrite | StdFile::kAppend;  // no emptying
constexpr int kFresh = StdFile::kWrite | StdFile::kCreate;

class StdFileTest : public testing::Test {
protected:
    void SetUp() override {
        char pattern[] = "/tmp/zt-file-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        folder = pattern;
        path = folder + "/file";
    }
    void TearDown() override { std::filesystem::remove_all(folder); }

    void Make(const std::string& content) { std::ofstream(path, std::ios::binary) << content; }
    std::string Content() const {
        std::ifstream file(path, std::ios::binary);
        std::stringstream text;
        text << file.rdbuf();
        return text.str();
    }
    std::string ReadUpTo(StdFile& file, int n) {
        std::string text(static_cast<size_t>(n), '?');
        int got = -1;
        file.Read(text.data(), n, &got);
        return text.substr(0, static_cast<size_t>(got));
    }

    std::string folder;
    std::string path;
};

// Text of n bytes in which every place looks different.
std::string Pattern(size_t n) {
    std::string text(n, 0);
    for (size_t i = 0; i < n; i++)
        text[i] = static_cast<char>('!' + (i * 7 + i / 90) % 90);
    return text;
}

TEST_F(StdFileTest, IsClosedAtFirst) {
    StdFile file;
    EXPECT_EQ(file.Handle(), 0);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.LastError(), 0);
    EXPECT_EQ(file.Close(), 0);
}

TEST_F(StdFileTest, DoesNothingWhenClosed) {
    StdFile file;
    char byte;
    int got = 9;
    EXPECT_EQ(file.Read(&byte, 1, &got), EBADF);
    EXPECT_EQ(got, 0);
    StdFile other;
    EXPECT_EQ(other.Write("x", 1), EBADF);
    EXPECT_EQ(other.Seek(0), EBADF);
    EXPECT_EQ(other.Truncate(0), EBADF);
    time_t time = 0;
    EXPECT_EQ(other.GetModificationTime(&time), EBADF);
    EXPECT_EQ(other.SetModificationTime(0), EBADF);
}

TEST_F(StdFileTest, ReportsAMissingFile) {
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), ENOENT);
    EXPECT_EQ(file.LastError(), ENOENT);
    EXPECT_FALSE(file.IsOpen());
    EXPECT_EQ(file.Open(folder.c_str(), StdFile::kWrite), EISDIR);
}

TEST_F(StdFileTest, OpensByWideNameAndByBytes) {
    Make("content");
    StdFile file;
    EXPECT_EQ(file.Open(NameFromBytes(path.c_str()), 0), 0);
    EXPECT_EQ(NameToBytes(file.Name()).c_str(), path);
    EXPECT_EQ(ReadUpTo(file, 7), "content");
    EXPECT_EQ(file.Open(file.Name(), 0), 0) << "by its own name";
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_EQ(NameToBytes(file.Name()).c_str(), path);
    EXPECT_EQ(ReadUpTo(file, 7), "content");
}

TEST_F(StdFileTest, OpensNamesOfAnyBytes) {
    path = folder + "/\xE9\xFF\n";
    Make("x");
    StdFile file;
    EXPECT_EQ(file.Open(NameFromBytes(path.c_str()), 0), 0);
    EXPECT_EQ(ReadUpTo(file, 7), "x");
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_EQ(NameToBytes(file.Name()).c_str(), path);
}

TEST_F(StdFileTest, EmptiesUnlessAppending) {
    Make("before");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), StdFile::kWrite | StdFile::kAppend), 0);
    EXPECT_EQ(file.Tell(), 6);
    EXPECT_EQ(file.WriteText("+"), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "before+");
    EXPECT_EQ(file.Open(path.c_str(), StdFile::kReadWrite | StdFile::kWrite), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "");
}

TEST_F(StdFileTest, ReadWriteAloneOnlyReads) {
    Make("before");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), StdFile::kReadWrite), 0);
    EXPECT_EQ(file.Write("x", 1), 0) << "it is only buffered";
    EXPECT_EQ(file.Flush(), EBADF);
    EXPECT_EQ(Content(), "before");
}

TEST_F(StdFileTest, CreatesWithTheModeAsked) {
    mode_t before = umask(0);
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0664u);
    std::filesystem::remove(path);
    EXPECT_EQ(file.Open(path.c_str(), kFresh | StdFile::kExecutable), 0);
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0775u);
    umask(before);
}

TEST_F(StdFileTest, StaysOpenOverExecOnlyWhenAsked) {
    Make("");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_EQ(fcntl(file.Handle(), F_GETFD) & FD_CLOEXEC, FD_CLOEXEC);
    EXPECT_EQ(file.Open(path.c_str(), StdFile::kInherit), 0);
    EXPECT_EQ(fcntl(file.Handle(), F_GETFD) & FD_CLOEXEC, 0);
}

TEST_F(StdFileTest, NeverHasDescriptorZero) {
    Make("content");
    int saved = dup(0);
    close(0);
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_GT(file.Handle(), 2);
    EXPECT_EQ(fcntl(0, F_GETFD), -1) << "and leaves 0 free";
    EXPECT_EQ(ReadUpTo(file, 7), "content");
    dup2(saved, 0);
    close(saved);
}

TEST_F(StdFileTest, ReadsInPiecesOfAnySize) {
    std::string content = Pattern(20000);
    Make(content);
    for (int piece : {1, 7, 4095, 4096, 4097, 20000}) {
        StdFile file;
        EXPECT_EQ(file.Open(path.c_str(), 0), 0);
        std::string all;
        for (std::string part; !(part = ReadUpTo(file, piece)).empty();)
            all += part;
        EXPECT_TRUE(all == content) << piece;
        EXPECT_EQ(file.LastError(), StdFile::kEndOfFile);
    }
}

TEST_F(StdFileTest, EndOfFileShowsOnlyWhenNothingWasRead) {
    Make("abc");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    char bytes[8];
    int got = 0;
    EXPECT_EQ(file.Read(bytes, 8, &got), 0);
    EXPECT_EQ(got, 3);
    EXPECT_EQ(file.Read(bytes, 0, &got), 0);
    EXPECT_EQ(file.Read(bytes, 8, &got), -1);
    EXPECT_EQ(got, 0);
    EXPECT_EQ(file.Read(bytes, 8, &got), -1) << "it sticks";
    EXPECT_EQ(file.Write("x", 1), -1);
    EXPECT_EQ(file.Seek(1), 0);
    EXPECT_EQ(ReadUpTo(file, 8), "bc");
}

TEST_F(StdFileTest, WritesInPiecesOfAnySize) {
    std::string content = Pattern(20000);
    for (size_t piece : {1u, 7u, 4095u, 4096u, 4097u, 20000u}) {
        StdFile file;
        EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
        for (size_t at = 0; at < content.size(); at += piece) {
            size_t n = std::min(piece, content.size() - at);
            EXPECT_EQ(file.Write(content.data() + at, static_cast<int>(n)), 0);
            EXPECT_EQ(file.Tell(), static_cast<int64_t>(at + n));
        }
        EXPECT_EQ(file.Close(), 0);
        EXPECT_TRUE(Content() == content) << piece;
    }
}

TEST_F(StdFileTest, WritesWhenTheBufferIsFull) {
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
    std::string content = Pattern(4096);
    EXPECT_EQ(file.Write(content.data(), 4095), 0);
    EXPECT_EQ(Content().size(), 0u);
    EXPECT_EQ(file.Write("x", 1), 0);
    EXPECT_EQ(Content().size(), 4096u);
    EXPECT_EQ(file.Write("y", 1), 0);
    EXPECT_EQ(Content().size(), 4096u);
    EXPECT_EQ(file.Flush(), 0);
    EXPECT_EQ(Content().size(), 4097u);
}

TEST_F(StdFileTest, IsClosedByItsDestructor) {
    {
        StdFile file;
        EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
        EXPECT_EQ(file.WriteText("kept"), 0);
    }
    EXPECT_EQ(Content(), "kept");
}

TEST_F(StdFileTest, ChangesFromReadingToWriting) {
    Make("abcdefgh");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kUpdate), 0);
    EXPECT_EQ(file.Rewind(), 0);
    EXPECT_EQ(ReadUpTo(file, 3), "abc");
    EXPECT_EQ(file.Tell(), 3);
    EXPECT_EQ(file.WriteText("XY"), 0);
    EXPECT_EQ(file.Tell(), 5);
    EXPECT_EQ(ReadUpTo(file, 2), "fg") << "and back";
    EXPECT_EQ(file.Tell(), 7);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "abcXYfgh");
}

TEST_F(StdFileTest, SeeksWithinAndOutsideTheBuffer) {
    std::string content = Pattern(20000);
    Make(content);
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    for (int64_t place : {0, 5, 4095, 4096, 4097, 100, 19999, 12000, 8192, 0}) {
        EXPECT_EQ(file.Seek(place), 0);
        EXPECT_EQ(file.Tell(), place);
        EXPECT_EQ(ReadUpTo(file, 1), content.substr(static_cast<size_t>(place), 1)) << place;
    }
    EXPECT_EQ(file.SeekRelative(99), 0);
    EXPECT_EQ(file.Tell(), 100);
    EXPECT_EQ(file.SeekRelative(-50), 0);
    EXPECT_EQ(ReadUpTo(file, 1), content.substr(50, 1));
    EXPECT_EQ(file.Rewind(), 0);
    EXPECT_EQ(file.Tell(), 0);
}

TEST_F(StdFileTest, SeekWithinTheBufferMovesNoDescriptor) {
    Make(Pattern(20000));
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    ReadUpTo(file, 10);
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 4096);
    EXPECT_EQ(file.Seek(4000), 0);
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 4096);
    EXPECT_EQ(file.Seek(4096), 0);
    EXPECT_EQ(file.Seek(0), 0) << "the buffer still holds the start";
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 4096);
    EXPECT_EQ(file.Seek(5000), 0);
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 5000);
}

TEST_F(StdFileTest, ReadsPastTheBufferWhatItCouldNotHold) {
    std::string content = Pattern(50000);
    Make(content);
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_EQ(ReadUpTo(file, 10), content.substr(0, 10));
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 4096);
    EXPECT_EQ(ReadUpTo(file, 30000), content.substr(10, 30000)) << "what is buffered comes first";
    EXPECT_EQ(file.Tell(), 30010);
    EXPECT_EQ(lseek(file.Handle(), 0, SEEK_CUR), 30010) << "nothing is read ahead";
    EXPECT_EQ(file.Seek(5), 0);
    EXPECT_EQ(ReadUpTo(file, 5), content.substr(5, 5));
    EXPECT_EQ(file.Seek(45000), 0);
    EXPECT_EQ(ReadUpTo(file, 20000), content.substr(45000));
    EXPECT_EQ(file.LastError(), 0) << "something was read";
    EXPECT_EQ(ReadUpTo(file, 20000), "");
    EXPECT_EQ(file.LastError(), StdFile::kEndOfFile);
}

TEST_F(StdFileTest, ReadsALargeRequestInPieces) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    StdFile reader;
    EXPECT_EQ(reader.Attach(ends[0]), 0);
    std::string content = Pattern(9000);
    ASSERT_EQ(write(ends[1], content.data(), 5000), 5000);
    ASSERT_EQ(write(ends[1], content.data() + 5000, 4000), 4000);
    close(ends[1]);
    EXPECT_EQ(ReadUpTo(reader, 8000), content.substr(0, 8000));
    EXPECT_EQ(ReadUpTo(reader, 8000), content.substr(8000));
}

TEST_F(StdFileTest, WritesPastTheBufferWhatItCouldNotHold) {
    std::string content = Pattern(50000);
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh | StdFile::kReadWrite), 0);
    EXPECT_EQ(file.Write(content.data(), 4096), 0);
    EXPECT_EQ(Content(), content.substr(0, 4096)) << "at once";
    EXPECT_EQ(file.Write(content.data() + 4096, 10), 0);
    EXPECT_EQ(Content().size(), 4096u) << "buffered";
    EXPECT_EQ(file.Write(content.data() + 4106, 30000), 0);
    EXPECT_EQ(file.Tell(), 34106);
    EXPECT_EQ(Content(), content.substr(0, 34106)) << "in order";
    EXPECT_EQ(file.Write(content.data() + 34106, 5), 0);
    EXPECT_EQ(file.Seek(4000), 0);
    EXPECT_EQ(ReadUpTo(file, 200), content.substr(4000, 200));
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), content.substr(0, 34111));
}

TEST_F(StdFileTest, RefusesImpossiblePlaces) {
    Make("abc");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    EXPECT_EQ(file.Seek(-1), EINVAL);
    EXPECT_EQ(file.Seek(1), 0);
    EXPECT_EQ(file.SeekRelative(INT64_MAX), EOVERFLOW);
    EXPECT_EQ(file.Seek(1), 0);
    EXPECT_EQ(ReadUpTo(file, 9), "bc");
}

TEST_F(StdFileTest, KeepsItsPlaceWhenItCannotSeek) {
    Make("abcdef");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kUpdate), 0);
    EXPECT_EQ(file.Rewind(), 0);
    EXPECT_EQ(ReadUpTo(file, 2), "ab");
    EXPECT_EQ(file.Seek(-1), EINVAL);
    EXPECT_EQ(file.Tell(), 2);
    EXPECT_EQ(file.WriteText("X"), EINVAL) << "nothing goes on before the error is cleared";
    EXPECT_EQ(file.SeekRelative(0), 0);
    EXPECT_EQ(file.WriteText("X"), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "abXdef");
}

TEST_F(StdFileTest, OpeningClosesWhatWasOpen) {
    Make("next");
    const std::string first = folder + "/first";
    StdFile file;
    EXPECT_EQ(file.Open(first.c_str(), kFresh | StdFile::kText), 0);
    EXPECT_EQ(file.WriteText("kept"), 0);
    const int before = file.Handle();
    EXPECT_EQ(file.Open(path.c_str(), kUpdate), 0);
    EXPECT_EQ(file.Handle(), before) << "its number was free again";
    EXPECT_EQ(std::filesystem::file_size(first), 4u);
    EXPECT_EQ(file.Tell(), 4);
    EXPECT_EQ(file.WriteText("\n"), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "next\n") << "the mode of the first file is gone";
    EXPECT_EQ(file.Open(first.c_str(), 0), 0);
    EXPECT_EQ(file.Open((path + "/none").c_str(), 0), ENOTDIR);
    EXPECT_FALSE(file.IsOpen()) << "closed all the same";
}

TEST_F(StdFileTest, SeekWritesWhatIsBuffered) {
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
    EXPECT_EQ(file.WriteText("abcdef"), 0);
    EXPECT_EQ(file.Seek(2), 0);
    EXPECT_EQ(file.WriteText("XX"), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "abXXef");
}

TEST_F(StdFileTest, HandlesPlacesBeyondFourGigabytes) {
    const int64_t kFar = int64_t{5} << 30;
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh | StdFile::kReadWrite), 0);
    EXPECT_EQ(file.Seek(kFar), 0);
    EXPECT_EQ(file.WriteText("far"), 0);
    EXPECT_EQ(file.Tell(), kFar + 3);
    EXPECT_EQ(file.Seek(kFar + 1), 0);
    EXPECT_EQ(ReadUpTo(file, 9), "ar");
    EXPECT_EQ(file.Truncate(3), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), std::string(3, '\0'));
}

TEST_F(StdFileTest, TruncatesBehindWhatWasReadAndWritten) {
    Make("abcdefgh");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kUpdate), 0);
    EXPECT_EQ(file.Rewind(), 0);
    EXPECT_EQ(ReadUpTo(file, 2), "ab");
    EXPECT_EQ(file.Truncate(4), 0);
    EXPECT_EQ(file.Tell(), 2);
    EXPECT_EQ(ReadUpTo(file, 9), "cd") << "not what was read ahead";
    EXPECT_EQ(file.WriteText("XYZ"), 0);
    EXPECT_EQ(file.Truncate(5), 0);
    EXPECT_EQ(Content(), "abcdX");
    EXPECT_EQ(file.Truncate(-1), EINVAL);
}

TEST_F(StdFileTest, TurnsLineFeedsOnlyInTextMode) {
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
    EXPECT_EQ(file.WriteText("a\nb"), 0);
    EXPECT_EQ(file.WriteLine("c"), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "a\nbc\n");
    EXPECT_EQ(file.Open(path.c_str(), kFresh | StdFile::kText), 0);
    EXPECT_EQ(file.WriteText("a\nb\n\n"), 0);
    EXPECT_EQ(file.Write("x\n", 2), 0);
    EXPECT_EQ(file.WriteLine("c"), 0);
    EXPECT_EQ(file.WriteText(nullptr), 0);
    EXPECT_EQ(file.Close(), 0);
    EXPECT_EQ(Content(), "a\r\nb\r\n\r\nx\nc\n");
}

TEST_F(StdFileTest, ReadsLines) {
    Make(std::string("one\r\n\ntwo\0three\nlong line\nlast", 30));
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    char line[8];
    for (const char* expected : {"one", "", "two", "three", "long li", "ne", "last"}) {
        EXPECT_EQ(file.ReadLine(line, sizeof line), 0) << expected;
        EXPECT_STREQ(line, expected);
    }
    EXPECT_EQ(file.ReadLine(line, sizeof line), -1);
    EXPECT_STREQ(line, "");
    EXPECT_EQ(file.ReadLine(line, sizeof line), -1);
}

TEST_F(StdFileTest, ReadsLinesOfOddShapes) {
    Make("a\r\r\nb\rc\n\r\n");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    char line[64];
    for (const char* expected : {"a", "b\rc", ""}) {
        EXPECT_EQ(file.ReadLine(line, sizeof line), 0);
        EXPECT_STREQ(line, expected);
    }
    EXPECT_EQ(file.ReadLine(line, sizeof line), -1);
}

TEST_F(StdFileTest, ReadLineNeverOverruns) {
    Make("abcdef\n");
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), 0), 0);
    char line[4] = {'1', '2', '3', '4'};
    EXPECT_EQ(file.ReadLine(line, 0), 0);
    EXPECT_EQ(line[0], '1');
    EXPECT_EQ(file.ReadLine(line, 1), 0);
    EXPECT_EQ(line[0], 0);
    EXPECT_EQ(file.ReadLine(line, 3), 0);
    EXPECT_STREQ(line, "ab");
    EXPECT_EQ(line[3], '4');
}

TEST_F(StdFileTest, SetsTimesThatLast) {
    StdFile file;
    EXPECT_EQ(file.Open(path.c_str(), kFresh), 0);
    EXPECT_EQ(file.WriteText("buffered"), 0);
    EXPECT_EQ(file.SetModificationTime(1000000000), 0);
    time_t time = 0;
    EXPECT_EQ(file.GetModificationTime(&time), 0);
    EXPECT_EQ(time, 1000000000);
    EXPECT_EQ(file.Close(), 0);
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mtime, 1000000000) << "closing writes nothing more";
    EXPECT_EQ(Content(), "buffered");
}

TEST_F(StdFileTest, TakesOverADescriptor) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    StdFile reader;
    StdFile writer;
    EXPECT_EQ(reader.Attach(ends[0]), 0);
    EXPECT_EQ(writer.Attach(ends[1]), 0);
    EXPECT_EQ(writer.WriteText("through"), 0);
    EXPECT_EQ(writer.Flush(), 0);
    EXPECT_EQ(ReadUpTo(reader, 7), "through");
    EXPECT_EQ(writer.Close(), 0);
    EXPECT_EQ(fcntl(ends[1], F_GETFD), -1);
    EXPECT_EQ(ReadUpTo(reader, 7), "");
    EXPECT_EQ(reader.LastError(), StdFile::kEndOfFile);
    EXPECT_EQ(writer.Attach(-1), EBADF);
    EXPECT_FALSE(writer.IsOpen());
}

TEST_F(StdFileTest, ReportsAReadThatFails) {
    StdFile file;
    EXPECT_EQ(file.Open(folder.c_str(), 0), 0);
    char byte;
    int got = 1;
    EXPECT_EQ(file.Read(&byte, 1, &got), EISDIR);
    EXPECT_EQ(got, 0);
}

TEST_F(StdFileTest, ReportsAFullDisk) {
    StdFile file;
    ASSERT_EQ(file.Open("/dev/full", StdFile::kWrite), 0);
    std::string content = Pattern(5000);
    EXPECT_EQ(file.Write(content.data(), 5000), ENOSPC);
    EXPECT_EQ(file.Write("x", 1), ENOSPC) << "it sticks";
    EXPECT_EQ(file.Close(), ENOSPC) << "a failure that nobody cleared is not lost";
    ASSERT_EQ(file.Open("/dev/full", StdFile::kWrite), 0);
    EXPECT_EQ(file.Write("x", 1), 0);
    EXPECT_EQ(file.Close(), ENOSPC) << "the flush failed";
}

TEST_F(StdFileTest, FlushClearsTheError) {
    StdFile file;
    ASSERT_EQ(file.Open("/dev/full", StdFile::kWrite), 0);
    EXPECT_EQ(file.WriteText("x"), 0);
    EXPECT_EQ(file.Flush(), ENOSPC);
    EXPECT_EQ(file.Flush(), 0) << "what could not be written is gone";
    EXPECT_EQ(file.Close(), 0);
}

// Runs in a child of its own, for the limit on the size of files cannot be taken back there.
int WriteBeyondTheLimit(const char* path) {
    signal(SIGXFSZ, SIG_IGN);
    rlimit limit{1000, 1000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    StdFile file;
    std::string content = Pattern(3000);
    if (file.Open(path, kFresh) != 0) return 2;
    if (file.Write(content.data(), 3000) != 0) return 3;
    if (file.Flush() != ENOSPC) return 4;
    if (file.Tell() != 1000) return 5;
    return 0;
}

// The same for a writing past the buffer: what there was room for is in the file.
int WriteMuchBeyondTheLimit(const char* path) {
    signal(SIGXFSZ, SIG_IGN);
    rlimit limit{6000, 6000};
    if (setrlimit(RLIMIT_FSIZE, &limit) != 0) return 1;
    StdFile file;
    std::string content = Pattern(9000);
    if (file.Open(path, kFresh) != 0) return 2;
    if (file.Write(content.data(), 9000) != EFBIG) return 3;
    if (file.Tell() != 6000) return 4;
    if (file.Write("x", 1) != EFBIG) return 5;
    return file.Close() == EFBIG ? 0 : 6;
}

TEST_F(StdFileTest, SaysWhyALargeWriteEnds) {
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) _exit(WriteMuchBeyondTheLimit(path.c_str()));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(Content(), Pattern(6000));
}

TEST_F(StdFileTest, ShortWriteLosesTheRestAndSaysSo) {
    pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) _exit(WriteBeyondTheLimit(path.c_str()));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(Content(), Pattern(3000).substr(0, 1000));
}

}  // namespace
}  // namespace zt
