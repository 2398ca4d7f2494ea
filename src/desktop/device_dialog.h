// "Setup Hart Device": the dialog through which a device is added or changed.
#pragma once

#include <wx/checkbox.h>
#include <wx/choice.h>
#include <wx/dialog.h>
#include <wx/stattext.h>
#include <wx/textctrl.h>

struct DeviceForm;

// The generated layer: the controls, top to bottom, each with its label on the left.
class guiDeviceDialog : public wxDialog {
public:
    guiDeviceDialog(wxWindow* parent, wxWindowID id = wxID_ANY, const wxString& title = "Setup Hart Device",
                    const wxPoint& pos = wxDefaultPosition, const wxSize& size = wxDefaultSize,
                    long style = wxDEFAULT_DIALOG_STYLE);

    wxStaticText* m_labelDeviceType;
    wxChoice* m_choiceDeviceType;
    wxStaticText* m_labelHartAddress;
    wxTextCtrl* m_textHartAddress;
    wxCheckBox* m_checkEnabled;
    wxCheckBox* m_checkAutoAddressing;
};

class DeviceDialog : public guiDeviceDialog {
public:
    explicit DeviceDialog(wxWindow* parent) : guiDeviceDialog(parent) {}

    void TransferFormToWindow(const DeviceForm& form);
    void TransferWindowToForm(DeviceForm& form) const;
};
