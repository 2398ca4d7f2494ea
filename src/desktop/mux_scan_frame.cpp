#include "desktop/mux_scan_frame.h"

#include "desktop/dialog_layout.h"
#include "mux/mux_rebuild.h"
#include "mux/mux_scan.h"

#include <wx/sizer.h>

#include <algorithm>
#include <utility>

MUXScanFrameBase::MUXScanFrameBase(wxWindow* parent, wxWindowID id, const wxString& title, const wxPoint& pos,
                                   const wxSize& size, long style)
    : wxFrame(parent, id, title, pos, size, style)
{
    wxPanel* panel = new wxPanel(this);
    wxBoxSizer* outer = new wxBoxSizer(wxVERTICAL);
    m_grid = new wxGrid(panel, wxID_ANY);
    m_grid->CreateGrid(0, 4);
    const char* headings[] = {"TYPE", "TAGNAME", "DESCRIPTION", "ADDRESS"};
    for (int c = 0; c < 4; ++c)
        m_grid->SetColLabelValue(c, headings[c]);
    m_grid->SetRowLabelSize(30);
    m_grid->EnableEditing(false);
    outer->Add(m_grid, 1, wxEXPAND | wxALL, 4);
    wxBoxSizer* buttons = new wxBoxSizer(wxHORIZONTAL);
    m_buttonAddAll = new wxButton(panel, wxID_ANY, "Add All");
    m_buttonAddSelected = new wxButton(panel, wxID_ANY, "Add Selected");
    m_buttonRebuildLoops = new wxButton(panel, wxID_ANY, "Rebuild Loops");
    m_buttonClose = new wxButton(panel, wxID_ANY, "Close");
    for (wxButton* button : {m_buttonAddAll, m_buttonAddSelected, m_buttonRebuildLoops, m_buttonClose})
        buttons->Add(button, 1, wxALL, 4);
    outer->Add(buttons, 0, wxEXPAND);
    panel->SetSizer(outer);
    wxBoxSizer* frameSizer = new wxBoxSizer(wxVERTICAL);
    frameSizer->Add(panel, 1, wxEXPAND);
    SetSizer(frameSizer);
    SizeForContent(*this, size);
    m_buttonAddAll->Bind(wxEVT_BUTTON, &MUXScanFrameBase::OnAddAll, this);
    m_buttonAddSelected->Bind(wxEVT_BUTTON, &MUXScanFrameBase::OnAddSelected, this);
    m_buttonRebuildLoops->Bind(wxEVT_BUTTON, &MUXScanFrameBase::OnRebuildLoops, this);
    m_buttonClose->Bind(wxEVT_BUTTON, &MUXScanFrameBase::OnClose, this);
}

MUXScanFrame::MUXScanFrame(AppContext& ctx, std::function<void()> onClosed)
    : MUXScanFrameBase(nullptr), ctx(ctx), onClosed(std::move(onClosed))
{
    m_grid->SetSelectionMode(wxGrid::wxGridSelectRows);
    Bind(wxEVT_CLOSE_WINDOW, &MUXScanFrame::OnCloseWindow, this);
}

void MUXScanFrame::ShowRows(const std::vector<MuxRow>& rows)
{
    if (m_grid->GetNumberRows() > 0)
        m_grid->DeleteRows(0, m_grid->GetNumberRows());
    for (const MuxRow& row : rows) {
        m_grid->AppendRows(1);
        const int r = m_grid->GetNumberRows() - 1;
        const wxString cells[] = {row.type, row.tagName, row.description, row.address};
        for (int c = 0; c < 4; ++c)
            m_grid->SetCellValue(r, c, cells[c]);
    }
    m_grid->AutoSizeColumns(false);
}

std::vector<MuxRow> MUXScanFrame::Rows() const
{
    std::vector<MuxRow> rows;
    for (int r = 0; r < m_grid->GetNumberRows(); ++r)
        rows.push_back(
            {m_grid->GetCellValue(r, 0), m_grid->GetCellValue(r, 1), m_grid->GetCellValue(r, 2), m_grid->GetCellValue(r, 3)});
    return rows;
}

std::vector<int> MUXScanFrame::SelectedRows() const
{
    std::vector<int> selected;
    for (int r : m_grid->GetSelectedRows())
        selected.push_back(r);
    return selected;
}

void MUXScanFrame::CloseScanWindow() { Close(true); }

void MUXScanFrame::OnAddAll(wxCommandEvent&) { AddAllMuxDevices(ctx, *this); }
void MUXScanFrame::OnAddSelected(wxCommandEvent&) { AddSelectedMuxDevices(ctx, *this); }
void MUXScanFrame::OnRebuildLoops(wxCommandEvent&) { RebuildMuxLoops(ctx, *this); }
void MUXScanFrame::OnClose(wxCommandEvent&) { CloseScanWindow(); }

void MUXScanFrame::OnCloseWindow(wxCloseEvent&)
{
    if (onClosed)
        onClosed();
    onClosed = nullptr;
    Destroy();
}
