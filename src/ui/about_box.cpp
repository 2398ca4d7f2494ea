#include "ui/about_box.h"

#include "app/small_commands.h"

wxAboutDialogInfo AboutBoxInfo(const InstallationEnvironment& env, const wxIcon& icon)
{
    wxAboutDialogInfo info;
    info.SetName("TGx+ Configuration tool");
    info.SetVersion("6.2.2");
    info.SetDescription(AboutDescription(env));
    info.SetCopyright("Copyright (C) TARN SYSTEMS LTD");
    info.SetWebSite("https://www.tarnsystems.com");
    info.SetIcon(icon);
    return info;
}

void ShowAboutBox(const InstallationEnvironment& env, const wxIcon& icon)
{
    wxAboutBox(AboutBoxInfo(env, icon), nullptr);
}
