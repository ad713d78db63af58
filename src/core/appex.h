#pragma once
#include <QString>

// Facts about the machine and its special folders, one shared instance.
class AppEx
{
public:
    static AppEx &instance();

    void InitCommonControls() {}
    QString ComputerName() const;
    QString UserName() const;
    bool FSPresent(const QString &path) const;
    bool IDEMode() const { return false; }
    QString OSVersion(int item) const;
    // Folder id 35 is the machine's application data folder.
    QString Path(int folderId, bool create) const;
    QString PathAndSubDir(int folderId, const QString &subPath, bool create) const;

private:
    AppEx() = default;
};

// True when a shift key is down: item 0 both, 1 the left, 2 the right, other the generic key.
bool Key_State_Shift(int item);
// The diagnostic line of the modifier keys.
QString Key_State_Line();
