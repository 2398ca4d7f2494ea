// Makes wx types readable in test failures and easy to write in tables.
#pragma once

#include "project/project.h"


#include <gtest/gtest.h>
#include <wx/arrstr.h>
#include <wx/dir.h>
#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/string.h>

#include <fstream>
#include <initializer_list>
#include <ostream>
#include <sstream>
#include <string>

// A failed wxWidgets check (an index out of range, ...) fails the test that made it.
inline void FailOnWxAssert(const wxString& file, int line, const wxString& func, const wxString& cond, const wxString& msg)
{
    ADD_FAILURE() << "wxWidgets assertion at " << file << ":" << line << " in " << func << ": " << cond << " " << msg;
}

// Several facts checked at once, each on its own: a failure names those that do not hold.
inline ::testing::AssertionResult AllHold(const char* facts, std::initializer_list<bool> holds)
{
    std::string failed;
    int number = 0;
    for (const bool holding : holds) {
        ++number;
        if (!holding)
            failed += (failed.empty() ? "" : ", ") + std::to_string(number);
    }
    if (failed.empty())
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "of (" << facts << "), number " << failed << " does not hold";
}
#define EXPECT_ALL(...) EXPECT_TRUE(AllHold(#__VA_ARGS__, {__VA_ARGS__}))
#define ASSERT_ALL(...) ASSERT_TRUE(AllHold(#__VA_ARGS__, {__VA_ARGS__}))

inline void PrintTo(const wxString& text, std::ostream* os)
{
    *os << '"' << text.utf8_string() << '"';
}

inline void PrintTo(const wxArrayString& lines, std::ostream* os)
{
    *os << "{";
    for (size_t i = 0; i < lines.size(); ++i)
        *os << (i ? ", \"" : "\"") << lines[i].utf8_string() << '"';
    *os << "}";
}

template <class Texts>
wxArrayString Lines(const Texts& texts)
{
    wxArrayString lines;
    for (const char* text : texts)
        lines.Add(wxString::FromUTF8(text));
    return lines;
}
inline wxArrayString Lines(std::initializer_list<const char*> texts) { return Lines<decltype(texts)>(texts); }

// Copies every file below `from` to the same place below `to`, creating the folders.
inline void CopyTree(const wxString& from, const wxString& to)
{
    wxArrayString files;
    wxDir::GetAllFiles(from, &files);
    for (const wxString& file : files) {
        wxFileName target(file);
        target.MakeRelativeTo(from);
        target.MakeAbsolute(to);
        wxFileName::Mkdir(target.GetPath(), wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
        wxCopyFile(file, target.GetFullPath());
    }
}

// A file's bytes exactly as stored (line ends included); empty when it cannot be read.
inline std::string ReadBytes(const wxString& path)
{
    std::ifstream in(path.fn_str(), std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}
