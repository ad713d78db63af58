#pragma once
#include <QPixmap>

// The small lamp beside a setting: lit when the setting is on.
QPixmap Status_Icon(bool on);
