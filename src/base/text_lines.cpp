#include "base/text_lines.h"

#include "base/unicode_text.h"

#include <wx/strconv.h>

#include <cstdint>
#include <new>

// Under AddressSanitizer large blocks are ordinary allocations, which it watches; mapped pages it
// does not.
#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__)
#define TGX_MAPPED_LARGE_BLOCKS 1
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#undef TGX_MAPPED_LARGE_BLOCKS
#endif
#endif
#endif

#ifdef TGX_MAPPED_LARGE_BLOCKS
#include <sys/mman.h>

namespace {

constexpr std::size_t kPageBytes = 4096;

// The pages a block takes: its last part fills a whole large page when it fills at least three
// quarters of one (a large page must lie whole in the mapping), else it takes pages of 4 KiB.
std::size_t MappedBytes(std::size_t bytes)
{
    const std::size_t tail = bytes % kLargeBlockBytes;
    if (tail >= kLargeBlockBytes / 4 * 3)
        return bytes - tail + kLargeBlockBytes;
    return (bytes + kPageBytes - 1) / kPageBytes * kPageBytes;
}

}  // namespace

// Mapped at a large page's boundary, so that every whole large page of the block can be one.
void* AllocateLargeBlock(std::size_t bytes)
{
    const std::size_t size = MappedBytes(bytes);
    void* const mapped = ::mmap(nullptr, size + kLargeBlockBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (mapped == MAP_FAILED)
        throw std::bad_alloc();
    char* const start = static_cast<char*>(mapped);
    const std::size_t offset = (kLargeBlockBytes - reinterpret_cast<std::uintptr_t>(start) % kLargeBlockBytes) % kLargeBlockBytes;
    char* const block = start + offset;
    if (offset != 0)
        ::munmap(start, offset);
    ::munmap(block + size, kLargeBlockBytes - offset);
    const std::size_t large = size / kLargeBlockBytes * kLargeBlockBytes;
    ::madvise(block, large, MADV_HUGEPAGE);
#ifdef MADV_POPULATE_WRITE
    // The small pages made at once, in one call rather than a fault each.
    if (large < size)
        ::madvise(block + large, size - large, MADV_POPULATE_WRITE);
#endif
    return block;
}

void FreeLargeBlock(void* block, std::size_t bytes) noexcept
{
    ::munmap(block, MappedBytes(bytes));
}
#else
void* AllocateLargeBlock(std::size_t bytes)
{
    return ::operator new(bytes);
}

void FreeLargeBlock(void* block, std::size_t) noexcept
{
    ::operator delete(block);
}
#endif

TextLines::TextLines(const wxArrayString& lines)
{
    for (const wxString& line : lines)
        Add(line);
}

wxString Utf8Text(std::string_view utf8)
{
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

void TextLines::Add(std::string_view utf8)
{
    for (std::size_t at = utf8.find("\r\n"); at != std::string_view::npos; at = utf8.find("\r\n", at + 2))
        ++count_;
    bytes_.insert(bytes_.end(), utf8.begin(), utf8.end());
    bytes_.push_back('\r');
    bytes_.push_back('\n');
    ++count_;
}

void TextLines::Add(const wxString& line)
{
    std::string utf8;
    if (!AppendUtf8Line(utf8, line)) {
        savable_ = false;
        utf8 = Utf8Bytes(line);
    }
    Add(std::string_view(utf8));
}

void TextLines::Clear()
{
    bytes_.clear();
    count_ = 0;
    savable_ = true;
}

void TextLines::swap(TextLines& other) noexcept
{
    bytes_.swap(other.bytes_);
    std::swap(count_, other.count_);
    std::swap(savable_, other.savable_);
}

void TextLines::Adopt(ByteBuffer&& bytes, std::size_t count)
{
    bytes_ = std::move(bytes);
    count_ = count;
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
