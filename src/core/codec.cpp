#include "codec.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>

namespace {

// Windows-1252 bytes 0x80 to 0x9F. The five the code page leaves undefined
// stand for the control characters of the same number, so they travel back.
constexpr char16_t High[32] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char Byte_Of(char32_t c)
{
    if (c < 0x80 || (c >= 0xA0 && c <= 0xFF))
        return static_cast<char>(c);
    for (int i = 0; i < 32; ++i)
        if (High[i] == c)
            return static_cast<char>(0x80 + i);
    return '?';
}

} // namespace

QByteArray To_1252(const QString &text)
{
    QByteArray out;
    out.reserve(text.size());
    for (const char32_t c : text.toUcs4())
        out.append(Byte_Of(c));
    return out;
}

QString From_1252(const QByteArray &bytes)
{
    QString out(bytes.size(), Qt::Uninitialized);
    QChar *d = out.data();
    for (const char b : bytes) {
        const auto u = static_cast<unsigned char>(b);
        *d++ = QChar(u >= 0x80 && u < 0xA0 ? High[u - 0x80] : char16_t(u));
    }
    return out;
}

QString Decode_Text(const QByteArray &bytes)
{
    const QByteArray bom("\xEF\xBB\xBF");
    const QByteArrayView body = bytes.startsWith(bom) ? QByteArrayView(bytes).sliced(3) : QByteArrayView(bytes);
    QStringDecoder utf8(QStringConverter::Utf8, QStringConverter::Flag::ConvertInitialBom);
    const QString text = utf8.decode(body);
    return utf8.hasError() ? From_1252(bytes) : text;
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

QString Read_Text_File(const QString &path, bool *ok)
{
    QFile f(path);
    const bool opened = f.open(QIODevice::ReadOnly);
    if (ok)
        *ok = opened;
    return opened ? Decode_Text(f.readAll()) : QString();
}
