// The simulated map editor's window (tgxsim-mbedit MAP.mbd): the map as a grid of its seven
// fields, rows to add and delete, saved back to the file on "Save and close". The simulated
// mbedit starts it when it has a display and no scripted edit, and waits until it is closed.
#include "base/text_file.h"

#include <wx/app.h>
#include <wx/button.h>
#include <wx/frame.h>
#include <wx/grid.h>
#include <wx/sizer.h>
#include <wx/tokenzr.h>

#include <algorithm>
#include <cstdio>

namespace {

const char* const kColumns[] = {"SECTION", "ADDRESS", "BYTE_ORDER", "TYPE", "TAGNAME", "DESCRIPTION", "REG_COUNT"};
constexpr int kColumnCount = 7;

class MapEditorFrame : public wxFrame {
public:
    explicit MapEditorFrame(const wxString& mapPath)
        : wxFrame(nullptr, wxID_ANY, "mbedit (simulated) - " + mapPath, wxDefaultPosition, wxSize(900, 600)),
          path(mapPath)
    {
        wxArrayString lines;
        ReadTextLines(path, lines);
        grid = new wxGrid(this, wxID_ANY);
        grid->CreateGrid(static_cast<int>(lines.size()), kColumnCount);
        for (int c = 0; c < kColumnCount; ++c)
            grid->SetColLabelValue(c, kColumns[c]);
        for (size_t r = 0; r < lines.size(); ++r) {
            // Fields split at every comma, empty ones kept; an eighth and later stay in the last.
            const wxArrayString fields = wxStringTokenize(lines[r], ",", wxTOKEN_RET_EMPTY_ALL);
            for (size_t c = 0; c < fields.size(); ++c) {
                const int column = std::min<int>(static_cast<int>(c), kColumnCount - 1);
                const wxString before = grid->GetCellValue(static_cast<int>(r), column);
                grid->SetCellValue(static_cast<int>(r), column, column == static_cast<int>(c) ? fields[c]
                                                                                        : before + "," + fields[c]);
            }
        }
        grid->AutoSizeColumns();

        auto* buttons = new wxBoxSizer(wxHORIZONTAL);
        auto button = [&](const char* label, void (MapEditorFrame::*handler)(wxCommandEvent&)) {
            auto* b = new wxButton(this, wxID_ANY, label);
            b->Bind(wxEVT_BUTTON, handler, this);
            buttons->Add(b, 0, wxALL, 4);
        };
        button("Add row", &MapEditorFrame::OnAddRow);
        button("Delete row", &MapEditorFrame::OnDeleteRow);
        button("Save and close", &MapEditorFrame::OnSave);
        button("Close without saving", &MapEditorFrame::OnDiscard);
        auto* sizer = new wxBoxSizer(wxVERTICAL);
        sizer->Add(grid, 1, wxEXPAND);
        sizer->Add(buttons, 0, wxALIGN_RIGHT);
        SetSizer(sizer);
    }

private:
    void OnAddRow(wxCommandEvent&) { grid->AppendRows(1); }
    void OnDeleteRow(wxCommandEvent&)
    {
        if (grid->GetNumberRows() > 0)
            grid->DeleteRows(std::max(grid->GetGridCursorRow(), 0), 1);
    }
    void OnSave(wxCommandEvent&)
    {
        grid->SaveEditControlValue();
        wxArrayString lines;
        for (int r = 0; r < grid->GetNumberRows(); ++r) {
            wxString line;
            for (int c = 0; c < kColumnCount; ++c)
                line << (c ? "," : "") << grid->GetCellValue(r, c);
            lines.Add(line);
        }
        WriteTextLines(path, lines);
        Close();
    }
    void OnDiscard(wxCommandEvent&) { Close(); }

    wxString path;
    wxGrid* grid = nullptr;
};

class MapEditorApp : public wxApp {
public:
    bool OnInit() override
    {
        if (argc != 2) {
            fputs("usage: tgxsim-mbedit MAP.mbd\n", stderr);
            return false;
        }
        (new MapEditorFrame(argv[1]))->Show();
        return true;
    }
};

}  // namespace

wxIMPLEMENT_APP(MapEditorApp);
