#include "version.h"

QString Version_Text()
{
    return QStringLiteral("Version ") + QString::number(STRATHMARK_VERSION_MAJOR) + QLatin1Char('.')
           + QString::number(STRATHMARK_VERSION_MINOR) + QLatin1Char('.') + QString::number(STRATHMARK_VERSION_PATCH);
}
