// Lines of text kept as the bytes of the file that holds them: UTF-8, each line followed by CR LF
// as the tool writes every text file, in one buffer, with where each line ends. A map of 65,536
// lines takes its file's size and a quarter of a megabyte, where a wide string per line took four
// times the file and an allocation each; saving it writes the buffer as it is. At most 4 GiB of
// lines (std::length_error beyond), far beyond the largest text file the tool reads.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// An allocator whose elements are left as they are when a vector grows (default-initialised, not
// zeroed): a file's bytes read into such a vector are written once, by the read.
template <class T>
struct UninitializedAllocator : std::allocator<T> {
    template <class U>
    struct rebind {
        using other = UninitializedAllocator<U>;
    };
    UninitializedAllocator() = default;
    template <class U>
    UninitializedAllocator(const UninitializedAllocator<U>&) noexcept
    {
    }
    template <class U>
    void construct(U* p) noexcept(std::is_nothrow_default_constructible<U>::value)
    {
        ::new (static_cast<void*>(p)) U;
    }
    template <class U, class... Args>
    void construct(U* p, Args&&... args)
    {
        ::new (static_cast<void*>(p)) U(std::forward<Args>(args)...);
    }
};

using ByteBuffer = std::vector<char, UninitializedAllocator<char>>;

class TextLines {
public:
    TextLines() = default;
    // Lines from elsewhere (a tool's printout, a list), each encoded as a save encodes it.
    TextLines(const wxArrayString& lines);  // implicit: a list of lines is taken where lines are

    std::size_t size() const { return ends_.size(); }
    bool empty() const { return ends_.empty(); }
    // The UTF-8 bytes of line `i`, without its line end (const: lines are not changed in place).
    const std::string_view operator[](std::size_t i) const
    {
        const std::size_t start = i == 0 ? 0 : ends_[i - 1] + 2;
        return std::string_view(bytes_.data() + start, ends_[i] - start);
    }
    // Line `i` as text.
    wxString Text(std::size_t i) const;

    void Add(std::string_view utf8);
    void Add(const char* utf8) { Add(std::string_view(utf8)); }
    // Encoded as WriteTextLines encodes a line: a character with no UTF-8 form is kept as U+FFFD,
    // and the lines then count as not savable (Savable()).
    void Add(const wxString& line);
    void Clear();
    void swap(TextLines& other) noexcept;

    // Every line followed by CR LF: the bytes of the file the lines are saved as.
    std::string_view Bytes() const { return std::string_view(bytes_.data(), bytes_.size()); }
    // False when a line added as text held a character that has no UTF-8 form.
    bool Savable() const { return savable_; }

    // Takes `bytes` as they are: lines each followed by CR LF, `ends` the offset of each line's
    // CR. The reader hands over a file's bytes so, without copying them.
    void Adopt(ByteBuffer&& bytes, std::vector<std::uint32_t>&& ends);

    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::string_view;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::string_view*;
        using reference = std::string_view;
        const_iterator(const TextLines& lines, std::size_t i) : lines_(&lines), i_(i) {}
        std::string_view operator*() const { return (*lines_)[i_]; }
        const_iterator& operator++()
        {
            ++i_;
            return *this;
        }
        bool operator==(const const_iterator& other) const { return i_ == other.i_; }
        bool operator!=(const const_iterator& other) const { return i_ != other.i_; }

    private:
        const TextLines* lines_;
        std::size_t i_;
    };
    using iterator = const_iterator;
    using value_type = std::string_view;
    const_iterator begin() const { return const_iterator(*this, 0); }
    const_iterator end() const { return const_iterator(*this, size()); }

    friend bool operator==(const TextLines& a, const TextLines& b) { return a.ends_ == b.ends_ && a.bytes_ == b.bytes_; }
    friend bool operator!=(const TextLines& a, const TextLines& b) { return !(a == b); }

private:
    ByteBuffer bytes_;
    std::vector<std::uint32_t> ends_;
    bool savable_ = true;
};

// The UTF-8 bytes a save writes for `line`, appended to `out`: ASCII characters copied as they
// are, the rest converted. False, with nothing appended, for a character with no UTF-8 form.
bool AppendUtf8Line(std::string& out, const wxString& line);
