#include "help_pages.h"

#include <QCoreApplication>
#include <QFileInfo>

QString Help_Index()
{
    const QString dir = QCoreApplication::applicationDirPath();
    for (const QString &candidate : {dir + QStringLiteral("/../share/doc/strathmark/help/index.html"),
                                     dir + QStringLiteral("/help/index.html")}) {
        if (QFileInfo(candidate).isFile())
            return QFileInfo(candidate).canonicalFilePath();
    }
    return QString();
}
