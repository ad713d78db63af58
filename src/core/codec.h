#pragma once
#include <QByteArray>
#include <QString>

// Files that leave or enter the program are Windows-1252, as older
// installations wrote them.
QByteArray To_1252(const QString &text);
QString From_1252(const QByteArray &bytes);
// Writes text as Windows-1252 with every line ending made CR LF.
bool Write_1252_File(const QString &path, const QString &text);
QString Read_1252_File(const QString &path, bool *ok = nullptr);
