#pragma once

#include <QProcess>
#include <QString>

/// An X display of its own, for what would disturb other windows on a common one. It ends with the object.
class VirtualDisplay
{
    Q_DISABLE_COPY(VirtualDisplay)
public:
    VirtualDisplay();
    ~VirtualDisplay();

    bool isValid() const { return !m_name.isEmpty(); } ///< false where no virtual display is installed
    QString name() const { return m_name; }            ///< for the variable DISPLAY
    bool holdKey(const QString &key) const;            ///< until the display ends

private:
    QProcess m_server;
    QString m_name;
};
