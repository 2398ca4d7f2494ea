// The Windows smoke test's eyes and hands (scripts/windows/test.sh): waits until a top-level
// window with the given title is shown, prints where it is and what its status bar says, and
// closes it as a user would.
//
//   window_probe TITLE SECONDS          prints "X Y WIDTH HEIGHT" and then the status text
//   window_probe --close TITLE          asks the window to close (WM_CLOSE)
//
// Exit status 0 on success, 1 when no such window was shown in time.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

HWND FindShownWindow(const char* title)
{
    HWND window = FindWindowA(nullptr, title);
    return window != nullptr && IsWindowVisible(window) ? window : nullptr;
}

// WM_GETTEXT travels between processes; a status bar answers with its first field's text.
std::string TextOf(HWND window)
{
    wchar_t text[512] = {};
    DWORD_PTR length = 0;
    if (!SendMessageTimeoutW(window, WM_GETTEXT, sizeof text / sizeof text[0], reinterpret_cast<LPARAM>(text),
                             SMTO_ABORTIFHUNG, 5000, &length))
        return std::string();
    char utf8[1024] = {};
    WideCharToMultiByte(CP_UTF8, 0, text, -1, utf8, sizeof utf8, nullptr, nullptr);
    return utf8;
}

}  // namespace

int main(int argc, char** argv)
{
    if (argc == 3 && std::strcmp(argv[1], "--close") == 0) {
        HWND window = FindShownWindow(argv[2]);
        return window != nullptr && PostMessageA(window, WM_CLOSE, 0, 0) ? 0 : 1;
    }
    if (argc != 3) {
        std::fprintf(stderr, "usage: window_probe TITLE SECONDS | window_probe --close TITLE\n");
        return 2;
    }
    const DWORD deadline = GetTickCount() + static_cast<DWORD>(std::atoi(argv[2])) * 1000;
    HWND window = nullptr;
    while ((window = FindShownWindow(argv[1])) == nullptr) {
        if (static_cast<LONG>(GetTickCount() - deadline) >= 0) {
            std::fprintf(stderr, "window_probe: no window \"%s\" shown\n", argv[1]);
            return 1;
        }
        Sleep(100);
    }
    // Give the window its first paint before anyone looks at it.
    DWORD_PTR ignored = 0;
    SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, 5000, &ignored);
    Sleep(500);
    RECT rect{};
    GetWindowRect(window, &rect);
    std::printf("%ld %ld %ld %ld\n", rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
    HWND statusBar = FindWindowExA(window, nullptr, "msctls_statusbar32", nullptr);
    std::printf("%s\n", statusBar != nullptr ? TextOf(statusBar).c_str() : "");
    return 0;
}
