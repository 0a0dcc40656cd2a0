// A tree of files in a folder of its own, for one test. Names are bytes relative to the folder.
// Removed at the end, whatever its rights have become.
#pragma once

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "foundation/file_name.h"

namespace zt {

class TemporaryTree {
public:
    TemporaryTree() {
        char name[] = "/tmp/zt-panels-XXXXXX";
        if (!mkdtemp(name)) std::abort();
        path_ = name;
        chmod(name, 0755);
    }
    ~TemporaryTree() {
        for (const std::string& name : restricted_)
            chmod(name.c_str(), 0755);
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryTree(const TemporaryTree&) = delete;
    TemporaryTree& operator=(const TemporaryTree&) = delete;

    const std::string& Path() const { return path_; }
    std::string PathOf(const std::string& name) const { return path_ + "/" + name; }
    Westring Wide(const std::string& name = "") const {
        return NameFromBytes(name.empty() ? path_.c_str() : PathOf(name).c_str());
    }

    void Folder(const std::string& name) {
        ASSERT_EQ(mkdir(PathOf(name).c_str(), 0755), 0) << name;
    }
    void File(const std::string& name, off_t size = 0) {
        const int file = open(PathOf(name).c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0644);
        ASSERT_GE(file, 0) << name;
        EXPECT_EQ(ftruncate(file, size), 0);
        close(file);
    }
    void Link(const std::string& name, const std::string& target) {
        ASSERT_EQ(symlink(target.c_str(), PathOf(name).c_str()), 0) << name;
    }
    void Mode(const std::string& name, mode_t mode) {
        restricted_.push_back(PathOf(name));
        ASSERT_EQ(chmod(PathOf(name).c_str(), mode), 0) << name;
    }
    void Time(const std::string& name, time_t seconds, long nanoseconds = 0) {
        const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
        ASSERT_EQ(utimensat(AT_FDCWD, PathOf(name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
    }
    void Remove(const std::string& name) { std::filesystem::remove_all(PathOf(name)); }

private:
    std::string path_;
    std::vector<std::string> restricted_;
};

// The test goes on as a user for whom permissions hold, until the end of the scope.
class OrdinaryUser {
public:
    OrdinaryUser() : user_(geteuid()), group_(getegid()) {
        constexpr gid_t kNoGroup = 65534;
        constexpr uid_t kNobody = 65534;
        if (user_ != 0) return;
        if (setegid(kNoGroup) != 0 || seteuid(kNobody) != 0) std::abort();
    }
    ~OrdinaryUser() {
        if (user_ != 0) return;
        if (seteuid(user_) != 0 || setegid(group_) != 0) std::abort();
    }

private:
    uid_t user_;
    gid_t group_;
};

}  // namespace zt
