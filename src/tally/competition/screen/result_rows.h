#pragma once
#include <QList>
#include <QStringList>

class Connection;

// Rows of the result grids of an event: number, place with its tie mark,
// name; in place order. Places show as plain digits whatever the locale.

// table: overall_results, highland_results or national_results.
QList<QStringList> Event_Result_Rows(Connection &conn, short comp, const QString &code, const QString &table);
// The placings of one dance.
QList<QStringList> Dance_Result_Rows(Connection &conn, short comp, const QString &code, short dance);

// Headings of the result grids.
QStringList Result_Headers();
