#pragma once
#include <QList>
#include <QString>

class Connection;

struct Competition_Choice
{
    QString text;   // name, a blank, date
    short id = 0;
};

// The competitions as the selection list shows them: by name from the last
// in the alphabet (dated names then show the newest year first), then by date.
QList<Competition_Choice> Read_Competition_List(Connection &conn);

// Makes the competition current: Current_Competition_Id, _Name and _Date.
void Select_Competition(Connection &conn, short id);
