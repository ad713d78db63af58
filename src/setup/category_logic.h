#pragma once
#include <QList>
#include <QString>
#include <QStringList>

class Connection;

// Database work of the categories and dances screens, apart from their widgets.

struct Category_Item
{
    QString code;
    QString name;
};
// The competition's categories by name.
QList<Category_Item> Read_Categories(Connection &conn, short competitionId);

struct Dance_Item
{
    int id = 0;
    QString name;
};
// Dances not in the category, highest id first.
QList<Dance_Item> Read_Available_Dances(Connection &conn, short competitionId, const QString &code);
// The category's dances in their order.
QList<Dance_Item> Read_Selected_Dances(Connection &conn, short competitionId, const QString &code);

// "C" and "H" are fixed from the categories screen.
bool Is_Fixed_Category(const QString &code);

// Puts a dance at position n (from 0) of the category.
void Add_Category_Dance(Connection &conn, short competitionId, const QString &code, int danceId, int position);
// Takes a dance out of the category; the gap in the order stays.
void Remove_Category_Dance(Connection &conn, short competitionId, const QString &code, int danceId);

// Swap the dance at position i of the list with its neighbour above (or
// below) and rewrite only those two rows' order, with positions counted from
// 0. Return the new position of the moved dance, or i when nothing moved.
int Move_Dance_Up(Connection &conn, short competitionId, const QString &code, QList<Dance_Item> &list, int i);
int Move_Dance_Down(Connection &conn, short competitionId, const QString &code, QList<Dance_Item> &list, int i);

// Whether a new (mode 1) or edited (mode 2) code is taken. An empty code
// counts as taken; an edit is not compared with its own entry at selected.
// The comparison is case-sensitive against what is stored.
bool Category_Code_Used(const QString &code, const QStringList &codes, int mode, int selected);
void Insert_Category(Connection &conn, short competitionId, const QString &code, const QString &name);
// A changed code leaves the category's dances and events under the old one.
void Update_Category(Connection &conn, short competitionId, const QString &code, const QString &name,
                     const QString &oldCode);
// The category and its dances; events that use it are not looked at.
void Delete_Category(Connection &conn, short competitionId, const QString &code);

// Dances 1 to 17 are the standard dances and are never deleted.
bool Dance_Can_Be_Deleted(const QString &idText);
void Insert_Dance(Connection &conn, const QString &name);
// Results and category rows of a dance across all competitions; the single
// judge's marks, prize and dancer-count rows stay.
void Delete_Dance_Dependents(Connection &conn, const QString &idText);
