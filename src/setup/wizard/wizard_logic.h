#pragma once
#include <QList>
#include <QString>

class Connection;

// Database work of the new competition wizard, apart from its widgets. The
// competition itself and its standard rows are made by Insert_Competition,
// the routine the competitions screen uses.

// One entry of the wizard's category list: the text shown and the category
// code it stands for ("Other" has none).
struct Wizard_Category
{
    QString text;
    QString code;
};
// Named categories (generated DNC ones left out) by name, then "Same as "
// the first event (by name) of each category in use apart from C, H and PRI,
// then "Other".
QList<Wizard_Category> Wizard_Categories(Connection &conn, short comp);
inline const QString Other_Category = QStringLiteral("Other");
inline const QString Same_As = QStringLiteral("Same as ");

// Whether an event of the competition already has that code (the store
// compares codes without regard to case).
bool Group_Code_Taken(Connection &conn, short comp, const QString &code);

struct Wizard_Event
{
    QString name;
    QString code;       // stored in upper case
    QString category;
    QString split;      // "N" or "Y"
    QString title;
    QString type;       // "O", "C" or empty
    int order = 0;
};
// An event whose category comes from the list.
void Insert_Wizard_Event(Connection &conn, short comp, const Wizard_Event &e);
// An event with a new category "DNCn" named "Dance Category n", n one more
// than the generated categories so far; gives the new code.
QString Insert_Other_Event(Connection &conn, short comp, const Wizard_Event &e);

// What the wizard's cancel removes: the competition, its events, its
// categories and their dances.
void Delete_Wizard_Competition(Connection &conn, short comp);
