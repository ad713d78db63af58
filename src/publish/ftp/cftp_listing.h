#pragma once
#include <QString>

// Size of the first entry of a folder listing whose name matches the pattern
// ("?" one character, "*" any run), or -1 when none does. Reads the Unix form
// ("-rw-r--r-- 1 owner group 300 Nov 23 10:05 name") and the DOS form
// ("11-23-26  10:05AM  300 name"); other lines are passed over.
qint64 Find_In_Listing(const QString &listing, const QString &pattern);
