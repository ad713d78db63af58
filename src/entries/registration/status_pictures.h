#pragma once
#include <QPixmap>

// The desk's sign-in pictures, drawn by the program: a green tick for signed
// in, a red cross for not signed in, an amber dot for no card shown.
QPixmap Tick_Picture(int size);
QPixmap Cross_Picture(int size);
QPixmap Amber_Picture(int size);
