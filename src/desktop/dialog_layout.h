// The layout the dialogs and windows share: labelled fields, check boxes under them, OK and Cancel
// at the bottom; and a size that always holds the content.
#pragma once

#include <wx/gdicmn.h>

#include <initializer_list>
#include <utility>

class wxCheckBox;
class wxDialog;
class wxStaticText;
class wxTopLevelWindow;
class wxWindow;

void LayOutFormDialog(wxDialog& dialog, std::initializer_list<std::pair<wxStaticText*, wxWindow*>> fields,
                      std::initializer_list<wxCheckBox*> checks);

// Sizes a window laid out by its sizer: the prescribed size where the content fits in it (-1 for
// a side: the content's), never less than the content's minimum, which also becomes the window's
// minimum. Measured again when the window is shown: only then does GTK give some controls (text
// entries) their real minimum, and the window grows to it.
void SizeForContent(wxTopLevelWindow& window, const wxSize& prescribed = wxDefaultSize);
