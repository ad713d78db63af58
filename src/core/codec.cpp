#include "codec.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <QStringEncoder>

QByteArray To_1252(const QString &text)
{
    QStringEncoder enc("windows-1252", QStringConverter::Flag::Default);
    if (!enc.isValid())
        return text.toLatin1();
    return enc.encode(text);
}

QString From_1252(const QByteArray &bytes)
{
    QStringDecoder dec("windows-1252", QStringConverter::Flag::Default);
    if (!dec.isValid())
        return QString::fromLatin1(bytes);
    return dec.decode(bytes);
}

bool Write_1252_File(const QString &path, const QString &text)
{
    QString t = text;
    t.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    t.replace(QLatin1Char('\n'), QLatin1String("\r\n"));
    QSaveFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    f.write(To_1252(t));
    return f.commit();
}

QString Read_1252_File(const QString &path, bool *ok)
{
    QFile f(path);
    const bool opened = f.open(QIODevice::ReadOnly);
    if (ok)
        *ok = opened;
    return opened ? From_1252(f.readAll()) : QString();
}
