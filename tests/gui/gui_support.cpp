#include "gui_support.h"

#include <wx/filefn.h>
#include <wx/filename.h>
#include <wx/sizer.h>
#include <wx/toplevel.h>

#include <dlfcn.h>

void PumpEvents(int milliseconds)
{
    for (int waited = 0; waited < milliseconds; waited += 20) {
        wxYield();
        wxMilliSleep(20);
    }
}

bool SaveScreenshot(wxWindow* window, const wxString& name)
{
    wxString folder = TGX_TEST_OUTPUT_DIR;
    wxGetEnv("TGX_SCREENSHOT_DIR", &folder);
    wxFileName::Mkdir(folder, wxS_DIR_DEFAULT, wxPATH_MKDIR_FULL);
    const wxString shot = folder + "/" + name;
    if (wxFileExists(shot))
        wxRemoveFile(shot);
    window->Raise();
    window->Update();
    PumpEvents(500);
    // A window's own place and size include the window manager's frame around it, when there is one.
    const wxRect rect = window->IsTopLevel() ? wxRect(window->GetPosition(), window->GetSize()) : window->GetScreenRect();
    wxArrayString ignored;
    wxExecute(wxString::Format("import -window root -crop %dx%d+%d+%d \"%s\"", rect.width, rect.height, rect.x, rect.y,
                               shot),
              ignored, wxEXEC_SYNC);
    return wxFileExists(shot);
}

namespace {

// The GTK calls the checks need, from the libraries the toolkit has loaded already.
struct Gtk {
    struct Size { int width, height; };
    struct List { void* data; List* next; List* prev; };
    template <class F>
    static F* Find(const char* name)
    {
        for (const char* library : {"libgtk-3.so.0", "libgobject-2.0.so.0"})
            if (void* handle = dlopen(library, RTLD_LAZY | RTLD_NOLOAD))
                if (void* symbol = dlsym(handle, name))
                    return reinterpret_cast<F*>(symbol);
        return nullptr;
    }
    void (*preferred)(void*, Size*, Size*) = Find<void(void*, Size*, Size*)>("gtk_widget_get_preferred_size");
    int (*width)(void*) = Find<int(void*)>("gtk_widget_get_allocated_width");
    int (*height)(void*) = Find<int(void*)>("gtk_widget_get_allocated_height");
    int (*mapped)(void*) = Find<int(void*)>("gtk_widget_get_mapped");
    List* (*children)(void*) = Find<List*(void*)>("gtk_container_get_children");
    unsigned long (*containerType)() = Find<unsigned long()>("gtk_container_get_type");
    unsigned long (*scrollableType)() = Find<unsigned long()>("gtk_scrollable_get_type");
    int (*isA)(void*, unsigned long) = Find<int(void*, unsigned long)>("g_type_check_instance_is_a");
    const char* (*typeName)(void*) = Find<const char*(void*)>("g_type_name_from_instance");

    // A scrolled widget may be smaller than its content: that is what it scrolls.
    void Squeezed(void* widget, std::vector<std::string>& found) const
    {
        Size min{}, natural{};
        preferred(widget, &min, &natural);
        if (!isA(widget, scrollableType()) && (width(widget) < min.width || height(widget) < min.height))
            found.push_back(wxString::Format("%s %dx%d below its minimum %dx%d", typeName(widget), width(widget),
                                             height(widget), min.width, min.height)
                                .ToStdString());
        if (isA(widget, containerType()))
            for (List* child = children(widget); child != nullptr; child = child->next)
                Squeezed(child->data, found);
    }
};

std::string SizeText(const wxSize& size) { return wxString::Format("%dx%d", size.x, size.y).ToStdString(); }

}  // namespace

std::vector<std::string> WindowProblems(wxTopLevelWindow& window)
{
    static const Gtk gtk;
    std::vector<std::string> problems;
    if (!gtk.mapped(window.GetHandle()))
        return {"not on screen"};
    const wxSize client = window.GetClientSize();
    // The window manager may not have granted a resize yet: the toolkit's layout is then cut.
    const wxSize onScreen(gtk.width(window.GetHandle()), gtk.height(window.GetHandle()));
    if (onScreen.x < client.x || onScreen.y < client.y)
        problems.push_back("on screen " + SizeText(onScreen) + ", laid out for " + SizeText(client));
    const wxSize needed = window.GetSizer() != nullptr ? window.GetSizer()->GetMinSize() : wxSize();
    if (client.x < needed.x || client.y < needed.y)
        problems.push_back(SizeText(client) + " below its content's minimum " + SizeText(needed));
    gtk.Squeezed(window.GetHandle(), problems);
    return problems;
}
