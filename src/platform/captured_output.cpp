#include "platform/captured_output.h"

#include "base/unicode_text.h"
#include "platform/wx_tool_runner.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/evtloop.h>
#include <wx/process.h>
#include <wx/stream.h>
#include <wx/utils.h>

#include <algorithm>
#include <memory>
#include <vector>

#ifdef __UNIX__
#include <poll.h>
#include <wx/wfstream.h>
#endif

void CapturedLines::Add(const char* data, std::size_t size)
{
    const char* const end = data + size;
    while (data < end) {
        if (afterCR && *data == '\n') {  // the second half of a CR LF
            afterCR = false;
            ++data;
            continue;
        }
        afterCR = false;
        const char* stop = data;
        while (stop < end && *stop != '\n' && *stop != '\r')
            ++stop;
        if (!cut) {
            const std::size_t used = keptBytes + pending.size();
            const std::size_t room = used < kMaxCapturedBytes ? kMaxCapturedBytes - used : 0;
            const std::size_t take = std::min<std::size_t>(room, stop - data);
            pending.append(data, take);
            if (take < static_cast<std::size_t>(stop - data))
                cut = true;
        }
        data = stop;
        if (data < end) {
            afterCR = *data == '\r';
            ++data;
            EndLine();
        }
    }
}

void CapturedLines::Finish()
{
    // The last line, unless it is a byte order mark alone: then the output has no line at all.
    const bool bomAlone = lines.empty() && keptBytes == 0 && pending == "\xEF\xBB\xBF";
    if (!pending.empty() && !bomAlone)
        EndLine();
}

void CapturedLines::EndLine()
{
    if (cut || lines.size() >= kMaxCapturedLines) {
        cut = true;
        pending.clear();
        return;
    }
    // A byte order mark before the first line is not part of it.
    if (lines.empty() && keptBytes == 0 && pending.compare(0, 3, "\xEF\xBB\xBF") == 0)
        pending.erase(0, 3);
    wxString line = wxString::FromUTF8(pending.data(), pending.size());
    if (line.empty() && !pending.empty())
        line = wxString(pending.data(), wxConvISO8859_1, pending.size());
    lines.Add(EncodableText(line));
    keptBytes += pending.size() + 1;
    pending.clear();
}

namespace {

class CapturedProcess : public wxProcess {
public:
    CapturedProcess() : wxProcess(wxPROCESS_REDIRECT) {}
    void OnTerminate(int, int status) override
    {
        ended = true;
        exitCode = status;
    }

    bool ended = false;
    int exitCode = -1;
};

// Reads what the stream holds now, without waiting for more, and at most `rounds` buffers of
// it. True when something was read.
bool ReadAvailable(wxInputStream* stream, std::vector<char>& buffer, CapturedLines* sink, int rounds)
{
    bool read = false;
    while (stream && rounds-- > 0 && stream->CanRead()) {
        const std::size_t size = stream->Read(buffer.data(), buffer.size()).LastRead();
        if (size == 0)
            break;
        if (sink)
            sink->Add(buffer.data(), size);
        read = true;
    }
    return read;
}

// Waits at most `milliseconds` for more output. Where the pipes are plain descriptors the wait
// ends as soon as either has data (or a signal, such as the child's end, arrives); elsewhere the
// event loop waits, as the toolkit's own captured run does.
void WaitForOutput(wxEventLoopBase* loop, wxProcess& process, int milliseconds)
{
#ifdef __UNIX__
    pollfd pipes[2];
    nfds_t count = 0;
    for (wxInputStream* stream : {process.GetInputStream(), process.GetErrorStream()}) {
        const auto* file = dynamic_cast<wxFileInputStream*>(stream);
        if (file && file->IsOk() && !stream->Eof())
            pipes[count++] = pollfd{file->GetFile()->fd(), POLLIN, 0};
    }
    ::poll(pipes, count, milliseconds);
    if (wxTheApp)
        wxTheApp->CheckSignal();  // the end of a child is signalled
    for (int events = 0; loop && events < 16 && loop->Pending(); ++events)
        loop->Dispatch();
#else
    if (loop)
        loop->DispatchTimeout(milliseconds);
    else
        wxMilliSleep(milliseconds);
    (void)process;
#endif
}

}  // namespace

long RunWithCapturedOutput(const ToolCommand& command, wxArrayString& output)
{
    output.Clear();
    // Child processes are noticed to end through the event loop: the running one, or our own.
    std::unique_ptr<wxEventLoopBase> ownLoop;
    wxAppTraits* traits = wxApp::GetTraitsIfExists();
    if (!wxEventLoopBase::GetActive() && traits)
        ownLoop.reset(traits->CreateEventLoop());
    wxEventLoopActivator activate(ownLoop ? ownLoop.get() : wxEventLoopBase::GetActive());
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();

    CapturedProcess process;
    if (ExecuteTool(command, wxEXEC_ASYNC | wxEXEC_HIDE_CONSOLE, &process) <= 0)
        return -1;
    process.CloseOutput();  // a tool that asks for input gets none instead of waiting for ever
    CapturedLines lines(output);
    std::vector<char> buffer(1 << 16);
    for (;;) {
        const bool ended = process.ended;  // read before draining, so nothing written is missed
        // Both pipes drained every round, never one skipped: a tool must not block on a full pipe.
        const bool readOutput = ReadAvailable(process.GetInputStream(), buffer, &lines, 16);
        const bool readError = ReadAvailable(process.GetErrorStream(), buffer, nullptr, 16);
        const bool read = readOutput || readError;
        if (ended && !read)
            break;
        // The windows keep answering while output floods in, and the child's end is noticed.
        WaitForOutput(loop, process, read ? 0 : 10);
    }
    lines.Finish();
    return process.exitCode;
}
