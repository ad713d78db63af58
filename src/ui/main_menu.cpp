#include "main_menu.h"

namespace {

Menu_Entry screen(const char *name, const char *caption, bool needs, bool stamps = true)
{
    return Menu_Entry{Menu_Entry::Screen, QString::fromLatin1(name), QString::fromLatin1(caption), needs, stamps};
}

Menu_Entry action(const char *name, const char *caption)
{
    return Menu_Entry{Menu_Entry::Action, QString::fromLatin1(name), QString::fromLatin1(caption), false, false};
}

Menu_Entry separator(const char *name)
{
    return Menu_Entry{Menu_Entry::Separator, QString::fromLatin1(name), QString(), false, false};
}

QList<Menu_Def> build()
{
    const bool Yes = true;
    const bool No = false;
    return {
        {"mnuFile", "&File",
         {action("mnuFilePageSetup", "Page Set&up..."), action("mnuFilePrint", "&Print..."),
          action("mnuFileExit", "E&xit")}},
        {"mnuEdit", "&Edit",
         {action("mnuEditCut", "Cu&t"), action("mnuEditCopy", "&Copy"), action("mnuEditPaste", "&Paste")}},
        {"mnuMain", "&Tallier",
         {screen("mnuCompetition", "&Competition", Yes), screen("mnuTallier", "&Championship", Yes),
          screen("mnuTallierPrem", "&Premiership", Yes)}},
        {"mnuAdmin", "&Admin",
         {screen("mnuCompetitionWizard", "&New Competition Wizard", No),
          // Choosing a competition does not count as a change of the file.
          screen("mnuSelectCompetition", "&Select Competition", No, false), separator("mnublank0"),
          screen("mnuevents", "&Competitions", No), separator("mnublank"),
          screen("mnusections", "&Dance Categories", Yes), screen("mnudances", "&Dances", No),
          separator("mnublank1"), screen("mnuAgeGroup", "&Events", Yes), screen("mnujudges", "&Judges", Yes),
          screen("mnucompetitors", "&Competitors", Yes), screen("mnusplit", "&Split Events by Age", Yes),
          separator("mnublank2"), screen("mnutrophy", "&Trophy Wizard", Yes), separator("mnublank7"),
          screen("mnubackup", "&Backup", No), screen("mnurestore", "&Restore", No), separator("mnublank3"),
          screen("mnusettings", "&System Settings", No), separator("mnublank5"),
          screen("mnuImport", "&Import Delimited Data", No)}},
        {"mnuReports", "&Reports",
         {screen("mnustewards", "&Line up sheets", Yes), screen("mnuteachers", "&Teachers Trophy", Yes),
          screen("mnuoverall", "&Overall Trophies", Yes), screen("mnuHTML", "&Generate HTML", Yes),
          screen("mnubrogard", "&Generate Brogard", Yes)}},
        {"mnureg", "&Registration",
         {screen("mnuregistration", "&Register Competitors", Yes),
          screen("mnuonlinereg", "&Check Online Registrations", Yes)}},
        {"mnuHelp", "&Help",
         {action("mnuHelpSearchForHelpOn", "&Search For Help On..."), separator("mnublank4"),
          action("mnuHelpAbout", "&About ")}},
    };
}

} // namespace

const QList<Menu_Def> &Main_Menu_Tree()
{
    static const QList<Menu_Def> tree = build();
    return tree;
}

Menu_Entry Find_Menu_Entry(const QString &item)
{
    for (const Menu_Def &menu : Main_Menu_Tree())
        for (const Menu_Entry &e : menu.entries)
            if (e.kind != Menu_Entry::Separator && e.name == item)
                return e;
    return Menu_Entry{Menu_Entry::Separator, QString(), QString(), false, false};
}
