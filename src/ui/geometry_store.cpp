#include "geometry_store.h"
#include "core/globals.h"

#include <QSettings>
#include <cmath>

namespace {

// Twips are 1/1440 inch; the program lays out at 96 pixels an inch.
constexpr double TWIPS_PER_PIXEL = 15.0;

#define OPEN_STORE(s) QSettings s(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Strathmark"), App_Title)

int readKey(QSettings &s, const char *key, int def)
{
    bool ok = false;
    const int v = s.value(QString::fromLatin1(key)).toString().toInt(&ok);
    return ok ? v : def;
}

} // namespace

int Twips_To_Pixels(int twips)
{
    return static_cast<int>(std::lround(twips / TWIPS_PER_PIXEL));
}

int Pixels_To_Twips(int pixels)
{
    return static_cast<int>(std::lround(pixels * TWIPS_PER_PIXEL));
}

QRect Load_Main_Geometry()
{
    OPEN_STORE(s);
    s.beginGroup(QStringLiteral("Settings"));
    return QRect(Twips_To_Pixels(readKey(s, "MainLeft", 1000)), Twips_To_Pixels(readKey(s, "MainTop", 1000)),
                 Twips_To_Pixels(readKey(s, "MainWidth", 6500)), Twips_To_Pixels(readKey(s, "MainHeight", 6500)));
}

bool Has_Main_Geometry()
{
    OPEN_STORE(s);
    s.beginGroup(QStringLiteral("Settings"));
    for (const char *key : {"MainLeft", "MainTop", "MainWidth", "MainHeight"})
        if (s.contains(QString::fromLatin1(key)))
            return true;
    return false;
}

void Save_Main_Geometry(const QRect &r)
{
    OPEN_STORE(s);
    s.beginGroup(QStringLiteral("Settings"));
    s.setValue(QStringLiteral("MainLeft"), QString::number(Pixels_To_Twips(r.left())));
    s.setValue(QStringLiteral("MainTop"), QString::number(Pixels_To_Twips(r.top())));
    s.setValue(QStringLiteral("MainWidth"), QString::number(Pixels_To_Twips(r.width())));
    s.setValue(QStringLiteral("MainHeight"), QString::number(Pixels_To_Twips(r.height())));
    s.sync();
}
