// The layout the small editing dialogs share: labelled fields, check boxes under them, OK and
// Cancel at the bottom.
#pragma once

#include <initializer_list>
#include <utility>

class wxCheckBox;
class wxDialog;
class wxStaticText;
class wxWindow;

void LayOutFormDialog(wxDialog& dialog, std::initializer_list<std::pair<wxStaticText*, wxWindow*>> fields,
                      std::initializer_list<wxCheckBox*> checks);
