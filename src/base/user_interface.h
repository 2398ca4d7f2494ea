// The port through which the logic talks to the person at the screen. The desktop tool shows
// real dialogs; tests answer from a script; a console front end prints and reads.
#pragma once

#include <wx/arrstr.h>
#include <wx/string.h>
#include <wx/utils.h>

#include <functional>

enum class MessageIcon { None, Information, Warning, Error, Exclamation };

// A modal message box with an OK button. An empty caption means the toolkit's default caption.
struct MessageForm {
    wxString text;
    wxString caption;
    MessageIcon icon = MessageIcon::None;
    // The start-up alerts have always been shown uncentred, with only their button and icon.
    bool centred = true;
};

// A Yes/No question; only Yes continues.
struct QuestionForm {
    wxString text;
    wxString caption = "Warning";
    MessageIcon icon = MessageIcon::None;
};

// A line of text to type. allowedChars empty: any character may be typed.
struct TextEntryForm {
    wxString message;
    wxString caption;
    wxString value;
    wxString allowedChars;
};

// A file to open or save; path receives the choice.
struct FileChoiceForm {
    wxString title;
    wxString folder;
    wxString fileName;
    wxString wildcard;
    bool save = false;
    bool overwritePrompt = false;
    bool mustExist = false;
    wxString path;
};

// The device dialog ("Setup Hart Device").
struct DeviceForm {
    wxArrayString typeNames;
    int typeSelection = 0;
    wxString address;
    bool enabledForPolling = false;
    bool autoAddressing = false;
};

// The HART command dialog ("Hart Command").
struct CommandForm {
    wxString commandNumber;  // "48" or "48:1,2,3"
    wxString cycleInterval;
    bool enabledForPolling = false;
    bool writeCommand = false;
};

// The options dialog ("Options"): the six port numbers as typed, in the order of the dialog's
// rows (virtual serial port, Modbus TCP/IP, Modbus encapsulated, intercom, syslog, HART IP),
// and the time server.
struct OptionsForm {
    wxString ports[6];
    wxString timeServerAddress;
    bool useTimeServer = false;
};

// Remote Options: the virtual COM port's name (one of comNames), target address and TCP port.
struct RemoteForm {
    wxArrayString comNames;
    wxString comName;
    wxString address;
    wxString port;
};

// Multiplexer Configurator: the gateway's address and the multiplexer's baud rate.
struct ScanForm {
    wxString address;
    wxString baudRate = "9600";
};

// The loop rebuild dialog: the loops to scan (box k labelled "k") and the search method.
struct MuxRebuildForm {
    bool allLoops = true;
    bool loops[16] = {true, true, true, true, true, true, true, true,
                      true, true, true, true, true, true, true, true};
    bool addressZeroSearch = true;
    bool firstDeviceSearch = false;
};

class MuxScanWindow;

class UserInterface {
public:
    virtual ~UserInterface() = default;

    virtual void ShowMessage(const MessageForm& form) = 0;
    virtual bool AskYesNo(const QuestionForm& form) = 0;
    // False when cancelled; on OK form.value holds the text.
    virtual bool EnterText(TextEntryForm& form) = 0;
    // False when cancelled; on OK form.path holds the file.
    virtual bool ChooseFile(FileChoiceForm& form) = 0;

    // An indeterminate, application-modal progress dialog pulsed once per step.
    virtual void BeginProgress(const wxString& title, const wxString& message) = 0;
    virtual void PulseProgress(const wxString& text) = 0;
    virtual void EndProgress() = 0;
    // The same over the configurator window, for the steps that are its own (the loop rebuild).
    virtual void BeginProgressOver(MuxScanWindow& /*owner*/, const wxString& title, const wxString& message)
    {
        BeginProgress(title, message);
    }

    // The dialogs: false when cancelled, else the form holds what was entered.
    virtual bool EditDevice(DeviceForm& form) = 0;
    virtual bool EditCommand(CommandForm& form) = 0;
    virtual bool EditOptions(OptionsForm& form) = 0;
    virtual bool EditRemote(RemoteForm& form) = 0;
    virtual bool EditScan(ScanForm& form) = 0;
    // START REBUILD: true; the dialog keeps its estimate up to date itself.
    virtual bool EditMuxRebuild(MuxRebuildForm& form) = 0;
    // Opens the modeless multiplexer configurator window (the Scan command stays disabled while
    // it is open); it lives until closed, the interface keeps ownership.
    virtual MuxScanWindow* OpenMuxScanWindow() = 0;

    // Rewrites the main panel and menus from the project.
    virtual void RefreshPanel() = 0;
    // Rebuilds only the command list, for the selected device.
    virtual void RefreshCommandList() = 0;
    virtual void ShowStatus(const wxString& text) = 0;

    // Lets a finished step stay on screen for a moment.
    virtual void WaitSeconds(int seconds) { wxSleep(seconds); }

    // Another run of the tool holds what this one needs next: shows `text` while it waits, asking
    // `free` about five times a second until it says the run may go on.
    virtual void WaitForOtherRun(const wxString& text, const std::function<bool()>& free)
    {
        (void)text;
        while (!free())
            wxMilliSleep(200);
    }

    // A save did not write the project file or its map file; `message` names the file and the
    // system's reason. True: the workflow goes on, as the desktop tool's always have, without a
    // word (the project counts as saved). The console reports it and stops the workflow.
    virtual bool ContinueAfterFailedSave(const wxString& message)
    {
        (void)message;
        return true;
    }

    // Shorthand for a plain notice with the default caption.
    void ShowMessage(const wxString& text) { ShowMessage(MessageForm{text, wxString(), MessageIcon::None}); }
};
