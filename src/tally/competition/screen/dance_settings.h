#pragma once
#include <QString>

class Connection;

// The per-dance settings of an event kept beside its marks: the dance's judge
// and whether the dance counts for trophies.

// Name of the judge set for the dance, empty when none is set.
QString Dance_Judge_Name(Connection &conn, short comp, const QString &code, short dance);
QString Judge_Name(Connection &conn, int judge);
// Replaces the dance's judge.
void Set_Dance_Judge(Connection &conn, short comp, const QString &code, short dance, short resultNo, int judge);

// True when the dance is flagged as not counting for trophies.
bool Has_No_Dancers_Flag(Connection &conn, short comp, const QString &code, short dance);
// value 1 ("Yes"): the dance counts; any other value flags it.
void Set_No_Dancers(Connection &conn, short comp, const QString &code, short dance, int value);

QString Dance_Name(Connection &conn, short dance);
