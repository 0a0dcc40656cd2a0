// A tree of files made for one test, in a folder of its own, removed at the end whatever its
// rights have become. Names are bytes, relative to the folder; missing folders on the way are
// made. Every call that fails fails the test.
#pragma once

#include <sys/types.h>

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace zt::headless {

// A time in UTC, as the programs under test see it.
time_t UtcTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

class FileTree {
public:
    FileTree();
    ~FileTree();

    FileTree(const FileTree&) = delete;
    FileTree& operator=(const FileTree&) = delete;

    const std::string& Path() const { return path; }
    std::string PathOf(std::string_view name) const;

    FileTree& Folder(std::string_view name);
    FileTree& File(std::string_view name, std::string_view content = "");
    FileTree& FileOfSize(std::string_view name, off_t size);         // all zero, takes no room
    FileTree& Link(std::string_view name, std::string_view target);  // symbolic
    FileTree& Mode(std::string_view name, mode_t mode);
    FileTree& Time(std::string_view name, time_t modified);
    FileTree& Remove(std::string_view name);  // with all below it
    FileTree& GiveTo(uid_t user);             // all of it; only as root

    bool Exists(std::string_view name) const;  // also a broken link
    std::string Content(std::string_view name) const;
    std::vector<std::string> Names(std::string_view folder = "") const;  // sorted bytes

private:
    std::string path;
};

// Who the programs under test run as where rights matter: root's tests take a user that may do
// nothing special.
uid_t OrdinaryUser();

// A list of names of any bytes that a file may have and that have made trouble before.
std::vector<std::string> OddNames();

}  // namespace zt::headless
