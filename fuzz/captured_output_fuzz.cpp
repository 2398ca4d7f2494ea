// A tool's output split into lines as a captured run splits it (CapturedLines): the input after
// its first byte, fed in chunks of random sizes as a pipe delivers them (the first byte seeds the
// sizes) and fed whole. The lines must not depend on the chunks, stay within the limits and hold
// no line end; a UTF-8 output gives the lines ReadTextFile gives for the same bytes.
// captured_flood_fuzz.cpp builds this with CAPTURED_FLOOD: the input repeated beyond the limits.
#include "fuzz_support.h"
#include "base/text_file.h"
#include "base/unicode_text.h"

#include <algorithm>
#include <random>

#ifndef CAPTURED_FLOOD
#define CAPTURED_FLOOD false
#endif

namespace {

// The lines of `total` bytes of the output (`period` bytes, repeated in `block`), fed a block at a
// time or, with `random`, in chunks of random sizes up to a pipe's 64 KiB.
wxArrayString Capture(const std::string& block, size_t period, size_t total, std::minstd_rand* random)
{
    wxArrayString lines;
    CapturedLines sink(lines);
    for (size_t at = 0; at < total;) {
        size_t take = std::min(total - at, block.size() - at % period);
        if (random != nullptr)
            take = std::min<size_t>(take, 1 + (*random)() % (size_t(1) << (*random)() % 17));
        sink.Add(block.data() + at % period, take);
        at += take;
    }
    sink.Finish();
    return lines;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size < 2)
        return 0;
    const std::string output(reinterpret_cast<const char*>(data + 1), size - 1);
    const bool flood = CAPTURED_FLOOD;
    std::string block = output;
    while (flood && block.size() < (64u << 10) + output.size())
        block += output;
    const size_t total = flood ? kMaxCapturedBytes + output.size() + 1 : output.size();
    std::minstd_rand random(data[0]);
    const wxArrayString lines = Capture(block, output.size(), total, &random);
    // A flood takes about a second a pass: it is fed once.
    FUZZ_CHECK(flood || Capture(block, output.size(), total, nullptr) == lines);

    // Each kept character came from at least one kept byte.
    size_t kept = 0;
    for (const wxString& line : lines)
        kept += line.length() + 1;
    FUZZ_CHECK(lines.size() <= kMaxCapturedLines && kept <= kMaxCapturedBytes);
    // Every line, or in a flood the last, which the cut may end anywhere (all would take long).
    for (size_t i = flood && !lines.empty() ? lines.size() - 1 : 0; i < lines.size(); ++i)
        FUZZ_CHECK(!lines[i].Contains("\r") && !lines[i].Contains("\n") && EncodableText(lines[i]) == lines[i]);
    const bool utf8 = output.find('\0') == std::string::npos && !wxString::FromUTF8(output).empty();
    wxArrayString read;
    FUZZ_CHECK(flood || !utf8 || (ReadTextFile(FuzzFile("output", output), read) == TextFileRead::Read && read == lines));
    return 0;
}
