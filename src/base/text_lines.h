// Lines of text kept as the bytes of the file that holds them: UTF-8, each line followed by CR LF
// as the tool writes every text file, in one buffer. A map of 65,536 lines takes its file's size,
// where a wide string per line took four times the file and an allocation each; saving it writes
// the buffer as it is. The lines are read in order; whoever needs them by number indexes them.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

// Blocks of at least kLargeBlockBytes (a map file's bytes) are taken from the system in pages that
// the system may back with large pages where it offers them (Linux), so that reading a map into
// fresh memory costs a few page faults instead of one per 4 KiB. The waste is less than a quarter
// of a large page. Elsewhere they are ordinary allocations. Throws std::bad_alloc as `new` does.
constexpr std::size_t kLargeBlockBytes = std::size_t{2} << 20;
void* AllocateLargeBlock(std::size_t bytes);
void FreeLargeBlock(void* block, std::size_t bytes) noexcept;

// An allocator whose elements are left as they are when a vector grows (default-initialised, not
// zeroed): a file's bytes read into such a vector are written once, by the read. Large blocks as
// above.
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
    T* allocate(std::size_t n)
    {
        if (n >= kLargeBlockBytes / sizeof(T))
            return static_cast<T*>(AllocateLargeBlock(n * sizeof(T)));
        return std::allocator<T>::allocate(n);
    }
    void deallocate(T* p, std::size_t n) noexcept
    {
        if (n >= kLargeBlockBytes / sizeof(T))
            FreeLargeBlock(p, n * sizeof(T));
        else
            std::allocator<T>::deallocate(p, n);
    }
};

using ByteBuffer = std::vector<char, UninitializedAllocator<char>>;

class TextLines {
public:
    TextLines() = default;
    // Lines from elsewhere (a tool's printout, a list), each encoded as a save encodes it.
    TextLines(const wxArrayString& lines);  // implicit: a list of lines is taken where lines are

    std::size_t size() const { return count_; }
    bool empty() const { return count_ == 0; }

    // A line holding CR LF counts as the lines they separate, as it reads back from its file.
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

    // Takes `bytes` as they are: `count` lines, each followed by CR LF and holding none. The
    // reader hands over a file's bytes so, without copying them.
    void Adopt(ByteBuffer&& bytes, std::size_t count);

    // The lines in order, each the UTF-8 bytes of a line without its line end.
    class const_iterator {
    public:
        using iterator_category = std::forward_iterator_tag;
        using value_type = std::string_view;
        using difference_type = std::ptrdiff_t;
        using pointer = const std::string_view*;
        using reference = std::string_view;
        const_iterator(std::string_view rest) : rest_(rest) {}
        std::string_view operator*() const { return rest_.substr(0, rest_.find("\r\n")); }
        const_iterator& operator++()
        {
            rest_.remove_prefix(rest_.find("\r\n") + 2);
            return *this;
        }
        bool operator==(const const_iterator& other) const { return rest_.data() == other.rest_.data(); }
        bool operator!=(const const_iterator& other) const { return !(*this == other); }

    private:
        std::string_view rest_;  // from the line on
    };
    using iterator = const_iterator;
    using value_type = std::string_view;
    const_iterator begin() const { return const_iterator(Bytes()); }
    const_iterator end() const { return const_iterator(Bytes().substr(bytes_.size())); }

    friend bool operator==(const TextLines& a, const TextLines& b) { return a.bytes_ == b.bytes_; }
    friend bool operator!=(const TextLines& a, const TextLines& b) { return !(a == b); }

private:
    ByteBuffer bytes_;
    std::size_t count_ = 0;
    bool savable_ = true;
};

// The text of UTF-8 bytes (a line of TextLines).
wxString Utf8Text(std::string_view utf8);

// The UTF-8 bytes a save writes for `line`, appended to `out`: ASCII characters copied as they
// are, the rest converted. False, with nothing appended, for a character with no UTF-8 form.
bool AppendUtf8Line(std::string& out, const wxString& line);
