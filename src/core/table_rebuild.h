#pragma once
#include <QString>

class Connection;

// The engine cannot drop or redefine a column in place: the table is built
// anew from its own CREATE statement with the column left out or redefined,
// its rows copied, and its indexes made again. A missing table or column is a
// DbError, as the statement it stands for would be.

// Drops the column and its content, and any key or index that names it.
void Drop_Column(Connection &conn, const QString &table, const QString &column);
// Gives the column a new definition ("points_awarded1 NUMERIC DEFAULT NULL");
// its keys and indexes stay.
void Redefine_Column(Connection &conn, const QString &table, const QString &column, const QString &definition);
