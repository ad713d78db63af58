#include "routines.h"
#include <QRegularExpression>
#include "errors.h"
#include "globals.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QRandomGenerator>
#include <QSet>
#include <QSysInfo>

QString Sql_Quote(const QString &text)
{
    QString out = text;
    return out.replace(QLatin1Char('\''), QLatin1String("''"));
}

QVariant Null_Default(const QVariant &value, const QVariant &def)
{
    return value.isNull() ? def : value;
}

QString Default_If_Empty(const QString &value, const QString &def)
{
    return value.isEmpty() ? def : value;
}

bool File_Exists(const QString &path)
{
    return !path.isEmpty() && QFileInfo::exists(path);
}

bool Is_Folder(const QString &path)
{
    return !path.isEmpty() && QFileInfo(path).isDir();
}

bool Shift_Down()
{
    if (!qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        return false;
    return QGuiApplication::queryKeyboardModifiers().testFlag(Qt::ShiftModifier);
}

QString Computer_Name()
{
    QString name = QSysInfo::machineHostName();
    const int zero = name.indexOf(QChar(0));
    return zero >= 0 ? name.left(zero) : name;
}

QString Place_Text(short place)
{
    if (!Opt_Locale)
        return QString::number(place);
    if (place == 1)
        return QStringLiteral("Win");
    if (place >= 2 && place <= 19)
        return QString::number(place - 1) + QStringLiteral("RU");
    return QString();
}

QString Format_Address(const QVariant &line1, const QVariant &line2, const QVariant &town,
                       const QVariant &postcode)
{
    const QString a = line1.toString(), b = line2.toString(), t = town.toString(), p = postcode.toString();
    if (a.isEmpty() && b.isEmpty() && t.isEmpty() && p.isEmpty()) {
        return QStringLiteral("Address......................................................................|"
                              ".............................................................................|"
                              ".............................................................................");
    }
    QString l1 = a, l2 = b;
    QString l3 = t + QLatin1Char(' ') + p;
    while (l3.endsWith(QLatin1Char(' ')))
        l3.chop(1);
    if (l1.isEmpty()) {
        l1 = l2;
        l2 = l3;
        l3.clear();
    }
    if (l2.isEmpty()) {
        l2 = l3;
        l3.clear();
    }
    if (l1.isEmpty() && l3.isEmpty()) {
        l1 = l2;
        l2.clear();
    }
    return l1 + QLatin1Char('|') + l2 + QLatin1Char('|') + l3;
}

bool Has_Duplicates(const QStringList &items)
{
    QSet<QString> keys;
    for (const QString &s : items) {
        const QString k = s.toLower();
        if (keys.contains(k))
            return true;
        keys.insert(k);
    }
    return false;
}

int Remove_Nulls(QVariantList &items)
{
    QSet<QString> keys;
    QVariantList kept;
    for (const QVariant &v : items) {
        if (v.isNull())
            continue;
        const QString k = v.toString().toLower();
        if (keys.contains(k))
            continue;
        keys.insert(k);
        kept << v;
    }
    const int dropped = items.size() - kept.size();
    items = kept;
    return dropped;
}

QList<int> Random_Sample(int count, int first, int last, bool unique)
{
    QList<int> pool;
    for (int i = first; i <= last; ++i)
        pool << i;
    if (unique && count > pool.size())
        throw AppError(QStringLiteral("Subscript out of range"));
    if (pool.isEmpty() && count > 0)
        throw AppError(QStringLiteral("Subscript out of range"));
    QList<int> out;
    auto *rng = QRandomGenerator::global();
    for (int i = 0; i < count; ++i) {
        const int k = static_cast<int>(rng->bounded(static_cast<quint32>(pool.size())));
        out << pool.at(k);
        if (unique)
            pool.removeAt(k);
    }
    return out;
}

short Random_Between(short low, short high)
{
    if (high < low)
        std::swap(low, high);
    return static_cast<short>(QRandomGenerator::global()->bounded(int(low), int(high) + 1));
}

QString Noise_Char(int lowCode, int highCode)
{
    const int code = Random_Between(static_cast<short>(lowCode), static_cast<short>(highCode));
    return QStringLiteral("<SPAN class=no>") + QChar(code) + QStringLiteral("</SPAN>");
}

QString Next_Code(const QString &code)
{
    static const QString digits = QStringLiteral("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ");
    QString out = code.toUpper();
    int i = out.size() - 1;
    while (i >= 0) {
        const int d = digits.indexOf(out.at(i));
        if (d < 0) {
            // A character outside the order starts it again at "0" and stops.
            out[i] = QLatin1Char('0');
            return out;
        }
        if (d + 1 < digits.size()) {
            out[i] = digits.at(d + 1);
            return out;
        }
        out[i] = QLatin1Char('0');
        --i;
    }
    return QLatin1Char('1') + out;
}

QString Bare_Number(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^-?[0-9]+(\\.[0-9]+)?$"));
    const QString t = text.trimmed();
    if (!number.match(t).hasMatch())
        throw AppError(QStringLiteral("Type mismatch"));
    return t;
}
