#pragma once
#include <QString>

// Where the prepared file lies: share/strathmark beside an installed program,
// or the build folder of a program run where it was built. Empty when neither.
QString Prepared_Database_Source();

// An installed program brings the prepared empty database beside it. On the
// first start, when the data folder has never held a database, the prepared
// file is copied in; an existing file is never touched. True when laid.
bool Lay_Prepared_Database(const QString &source = Prepared_Database_Source());
