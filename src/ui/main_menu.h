#pragma once
#include <QList>
#include <QString>

// The main window's menu tree, in order.
struct Menu_Entry
{
    enum Kind {
        Screen,     // opens the screen registered for the item (disabled while none is)
        Action,     // handled by the main window itself
        Separator,
    };
    Kind kind;
    QString name;
    QString caption;
    bool needsCompetition = false;
    // Opening it stamps the file's last update.
    bool stamps = false;
};

struct Menu_Def
{
    QString name;
    QString caption;
    QList<Menu_Entry> entries;
};

const QList<Menu_Def> &Main_Menu_Tree();
// The entry of a menu item; kind Separator with an empty name when unknown.
Menu_Entry Find_Menu_Entry(const QString &item);
