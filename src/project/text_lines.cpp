#include "project/text_lines.h"

#include "project/unicode_text.h"

#include <wx/strconv.h>

TextLines::TextLines(const wxArrayString& lines)
{
    for (const wxString& line : lines)
        Add(line);
}

wxString TextLines::Text(std::size_t i) const
{
    const std::string_view line = (*this)[i];
    return wxString::FromUTF8(line.data(), line.size());
}

void TextLines::Add(std::string_view utf8)
{
    bytes_.append(utf8);
    ends_.push_back(bytes_.size());
    bytes_ += "\r\n";
}

void TextLines::Add(const wxString& line)
{
    if (!AppendUtf8Line(bytes_, line)) {
        savable_ = false;
        bytes_ += Utf8Bytes(line);
    }
    ends_.push_back(bytes_.size());
    bytes_ += "\r\n";
}

void TextLines::Clear()
{
    bytes_.clear();
    ends_.clear();
    savable_ = true;
}

void TextLines::swap(TextLines& other) noexcept
{
    bytes_.swap(other.bytes_);
    ends_.swap(other.ends_);
    std::swap(savable_, other.savable_);
}

void TextLines::Adopt(std::string&& bytes, std::vector<std::size_t>&& ends)
{
    bytes_ = std::move(bytes);
    ends_ = std::move(ends);
    savable_ = true;
}

bool AppendUtf8Line(std::string& out, const wxString& line)
{
    const wxStringCharType* const chars = line.wx_str();
    const std::size_t length = line.length();
    const std::size_t at = out.size();
    out.resize(at + length);
    unsigned long high = 0;  // gathered over the line: one pass, no branch per character
    for (std::size_t c = 0; c < length; ++c) {
        high |= static_cast<unsigned long>(chars[c]);
        out[at + c] = static_cast<char>(chars[c]);
    }
    if (high < 0x80)
        return true;
    const std::size_t bytes = wxConvUTF8.FromWChar(nullptr, 0, line.wc_str(), length);
    if (bytes == wxCONV_FAILED) {
        out.resize(at);
        return false;
    }
    out.resize(at + bytes);
    wxConvUTF8.FromWChar(&out[at], bytes, line.wc_str(), length);
    return true;
}
