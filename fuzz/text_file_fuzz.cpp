// ReadTextFile both ways on one file (the input after its first byte): line by line, and whole
// with a line limit (the first byte), over lines that are there before. Both must give the same
// lines when the whole read takes the file; a refused read leaves the lines as they were; every
// line has no line end and can be encoded. ReadFirstTextLines keeps the first lines of the same,
// as bytes.
#include "fuzz_support.h"
#include "base/text_file.h"
#include "base/unicode_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (size == 0)
        return 0;
    const size_t maxLines = data[0];
    const wxString path = FuzzFile("text", data + 1, size - 1);
    wxArrayString each;
    const TextFileRead eachRead = ReadTextFile(path, [&each](const wxString& line) { each.Add(line); });
    wxArrayString before;
    before.Add("there before");
    wxArrayString whole = before;
    TextLines first = before;
    const TextFileRead wholeRead = ReadTextFile(path, whole, maxLines);
    const TextFileRead firstRead = ReadFirstTextLines(path, first, maxLines);

    FUZZ_CHECK(eachRead != TextFileRead::Missing && firstRead == eachRead);
    FUZZ_CHECK((wholeRead == TextFileRead::Read) == (eachRead == TextFileRead::Read && each.size() <= maxLines));
    FUZZ_CHECK(wholeRead == TextFileRead::Read ? whole == each : whole == before);
    FUZZ_CHECK(eachRead == TextFileRead::Read ? first.size() == std::min(each.size(), maxLines) : first == TextLines(before));
    size_t i = 0;
    for (const std::string_view line : first)
        FUZZ_CHECK(eachRead != TextFileRead::Read || Utf8Text(line) == each[i++]);
    for (const wxString& line : each)
        FUZZ_CHECK(!line.Contains("\r") && !line.Contains("\n") && EncodableText(line) == line);
    return 0;
}
