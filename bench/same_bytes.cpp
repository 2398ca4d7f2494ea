// The floor of scripts/bench.sh for tgxcfg's whole commands: a process that reads files and
// writes the same bytes elsewhere, each in one call, and flushes each written file to the disk
// as every save of the tool does; a pair given after --no-flush is left in the system's cache
// (the generator's inputs of the build folder). No toolkit: nothing but the C library.
//   same_bytes FROM TO [FROM TO | --no-flush FROM TO]...
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>
#include <string>

namespace {

bool ReadWhole(const char* path, std::string& bytes)
{
    const int fd = ::open(path, O_RDONLY);
    struct stat info;
    if (fd < 0 || ::fstat(fd, &info) != 0)
        return false;
    bytes.resize(static_cast<std::size_t>(info.st_size));
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t count = ::read(fd, &bytes[got], bytes.size() - got);
        if (count <= 0)
            break;
        got += static_cast<std::size_t>(count);
    }
    ::close(fd);
    return got == bytes.size();
}

bool WriteWhole(const char* path, const std::string& bytes, bool flush)
{
    const int fd = ::open(path, O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (fd < 0)
        return false;
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = ::write(fd, bytes.data() + written, bytes.size() - written);
        if (count <= 0)
            break;
        written += static_cast<std::size_t>(count);
    }
    const bool whole = written == bytes.size() && (!flush || ::fsync(fd) == 0);
    return ::close(fd) == 0 && whole;
}

}  // namespace

int main(int argc, char** argv)
{
    std::string bytes;
    for (int i = 1; i < argc;) {
        const bool flush = std::strcmp(argv[i], "--no-flush") != 0;
        i += flush ? 0 : 1;
        if (i + 1 >= argc || !ReadWhole(argv[i], bytes) || !WriteWhole(argv[i + 1], bytes, flush)) {
            std::fprintf(stderr, "same_bytes: cannot copy %s\n", i < argc ? argv[i] : "");
            return 1;
        }
        i += 2;
    }
    return 0;
}
