// What the harnesses share: wxBase started once; the input as text, as the lines a tool's
// captured output gives, or as a file for the readers of files; and how a broken promise aborts.
#pragma once

#include "platform/captured_output.h"

#include <wx/arrstr.h>
#include <wx/init.h>
#include <wx/log.h>
#include <wx/string.h>

#include <unistd.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static wxInitializer initializer;
    // A failed wx check (an index out of range, ...) is a finding: stop there, with its place.
    wxSetAssertHandler([](const wxString& file, int line, const wxString& func, const wxString& cond,
                          const wxString& msg) {
        std::fprintf(stderr, "wx assertion failed: %s:%d %s: %s %s\n", static_cast<const char*>(file.utf8_str()),
                     line, static_cast<const char*>(func.utf8_str()), static_cast<const char*>(cond.utf8_str()),
                     static_cast<const char*>(msg.utf8_str()));
        std::abort();
    });
    wxLog::EnableLogging(false);
    return 0;
}

inline wxString FuzzText(const uint8_t* data, size_t size)
{
    const char* bytes = reinterpret_cast<const char*>(data);
    wxString text = wxString::FromUTF8(bytes, size);
    if (text.empty() && size > 0)
        text = wxString(bytes, wxConvISO8859_1, size);
    return text;
}

// The lines a tool's captured output gives for these bytes (CapturedLines, as RunWithCapturedOutput splits them).
inline wxArrayString FuzzLines(const uint8_t* data, size_t size)
{
    wxArrayString lines;
    CapturedLines output(lines);
    output.Add(reinterpret_cast<const char*>(data), size);
    output.Finish();
    return lines;
}

// The file `name` in a folder of this process's own (removed when it ends well), in memory where
// the system has such a folder: saves flush their files to the disk.
inline std::string FuzzPath(const std::string& name)
{
    static const struct Folder {
        std::filesystem::path path =
            (std::filesystem::is_directory("/dev/shm") ? "/dev/shm/tgx-fuzz-" : "/tmp/tgx-fuzz-") + std::to_string(getpid());
        Folder() { std::filesystem::create_directories(path); }
        ~Folder() { std::filesystem::remove_all(path); }
    } folder;
    return (folder.path / name).string();
}

// The bytes as that file.
inline wxString FuzzFile(const std::string& name, const std::string& bytes)
{
    std::ofstream(FuzzPath(name), std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return FuzzPath(name);
}

inline wxString FuzzFile(const std::string& name, const uint8_t* data, size_t size)
{
    return FuzzFile(name, std::string(reinterpret_cast<const char*>(data), size));
}

// A promise of the code under test that the input broke: a finding, with what broke.
[[noreturn]] inline void FuzzFail(const wxString& what)
{
    std::fprintf(stderr, "fuzz check failed: %s\n", static_cast<const char*>(what.utf8_str()));
    std::abort();
}
#define FUZZ_CHECK(condition) ((condition) ? void() : FuzzFail(#condition))

// The input cut at every NUL byte (`maxParts` > 0: at most that many parts, the last keeping
// the remaining NULs).
inline std::vector<std::string> FuzzParts(const uint8_t* data, size_t size, size_t maxParts = 0)
{
    std::vector<std::string> parts(1);
    for (size_t i = 0; i < size; ++i) {
        if (data[i] == 0 && (maxParts == 0 || parts.size() < maxParts))
            parts.emplace_back();
        else
            parts.back() += static_cast<char>(data[i]);
    }
    return parts;
}

inline wxString FuzzText(const std::string& part)
{
    return FuzzText(reinterpret_cast<const uint8_t*>(part.data()), part.size());
}
