#include "appex.h"
#include "errors.h"
#include "routines.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QStandardPaths>
#include <QSysInfo>

AppEx &AppEx::instance()
{
    static AppEx one;
    return one;
}

QString AppEx::ComputerName() const
{
    return Computer_Name();
}

QString AppEx::UserName() const
{
    QString name = qEnvironmentVariable("USER");
    if (name.isEmpty())
        name = qEnvironmentVariable("LOGNAME");
    return name;
}

bool AppEx::FSPresent(const QString &path) const
{
    return QFileInfo::exists(path);
}

QString AppEx::OSVersion(int item) const
{
    switch (item) {
    case 0:
        return QSysInfo::kernelType();
    case 5:
    case 6:
        return QString();
    case 7:
        return QSysInfo::kernelVersion();
    case 1:
    case 2:
    case 3:
    case 4:
    case 8:
        return QStringLiteral("0");
    default:
        throw AppError(QStringLiteral("System error retrieving information 87"));
    }
}

QString AppEx::Path(int folderId, bool create) const
{
    if (folderId != 35)
        throw AppError(QStringLiteral("Invalid PathId for requested function"));
    QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    if (base.isEmpty())
        throw AppError(QStringLiteral("System error 2"));
    if (!QFileInfo(base).isDir()) {
        if (!create)
            throw AppError(QStringLiteral("Valid PathId but folder doesn't exist"));
        QDir().mkpath(base);
    }
    return base.endsWith(QLatin1Char('/')) ? base : base + QLatin1Char('/');
}

QString AppEx::PathAndSubDir(int folderId, const QString &subPath, bool create) const
{
    const QString full = Path(folderId, create) + subPath;
    if (!QFileInfo(full).isDir()) {
        if (!create)
            throw AppError(QStringLiteral("Valid PathId but folder doesn't exist"));
        if (!QDir().mkpath(full))
            throw AppError(QStringLiteral("System error 5"));
    }
    return full;
}

bool Key_State_Shift(int item)
{
    // The toolkit reports the modifier, not which of the two keys holds it.
    Q_UNUSED(item);
    return Shift_Down();
}

QString Key_State_Line()
{
    Qt::KeyboardModifiers m;
    if (qobject_cast<QGuiApplication *>(QCoreApplication::instance()))
        m = QGuiApplication::queryKeyboardModifiers();
    auto yn = [](bool b) { return b ? QStringLiteral("True") : QStringLiteral("False"); };
    const bool shift = m.testFlag(Qt::ShiftModifier);
    return QStringLiteral("SHIFT KEY: ") + QStringLiteral("LEFT: ") + yn(shift) + QStringLiteral(" RIGHT: ") + yn(shift)
           + QStringLiteral(" EITHER: ") + yn(shift) + QStringLiteral(" BOTH:   ") + yn(false)
           + QStringLiteral(" CTRL KEY:   ") + yn(m.testFlag(Qt::ControlModifier))
           + QStringLiteral(" ALT KEY:   ") + yn(m.testFlag(Qt::AltModifier));
}
