#pragma once
#include <QByteArray>
#include <QString>

// Files that leave the program are Windows-1252, as older installations wrote
// them. Files that come in may be that, or UTF-8 from today's spreadsheets and
// web sites.

// A character outside the code page becomes "?".
QByteArray To_1252(const QString &text);
QString From_1252(const QByteArray &bytes);
// The one decoding of every file read: UTF-8 when the bytes are valid UTF-8
// (a byte-order mark dropped), Windows-1252 otherwise.
QString Decode_Text(const QByteArray &bytes);
// Writes text as Windows-1252 with every line ending made CR LF.
bool Write_1252_File(const QString &path, const QString &text);
// Reads a whole file through Decode_Text.
QString Read_Text_File(const QString &path, bool *ok = nullptr);
