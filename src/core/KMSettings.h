#pragma once

#include "core/KMSettingsValues.h"

#include <QList>
#include <QObject>
#include <QPointer>

#include <memory>

class QAction;
class QPixmap;
class QSettings;
class kmmainwidget;
class kmpreferenceswidget;

/// The actions of one menu, as the tree of the shortcuts shows them.
struct KMActionGroup
{
    QString title;
    QList<QPointer<QAction>> actions; ///< an action that was deleted since is null
};

/// All settings of the program: read once at start, written once at exit, read as plain fields in between.
/// The files "kelmo.ini" and "panel.ini" lie in the directory of the program. Keys that are not ours stay in them.
/// A file that cannot be read counts as empty and one that cannot be written is left alone, without a word; a damaged
/// value counts as missing.
class KMSettings : public QObject, public KMSettingsValues
{
    Q_OBJECT
public:
    /// An empty directory stands for that of the program, looked up when it is needed: the settings exist before
    /// the application does.
    explicit KMSettings(const QString &directory = QString(), QObject *parent = nullptr);
    ~KMSettings() override;

    void load(); ///< dpiScale has to be set before
    void save();

    void apply(const KMSettingsValues &values); ///< takes all values and sends the signals of those that changed
    const KMSettingsValues &values() const { return *this; }

    QColor displayColor(int index) const;                 ///< invalid for a place without a colour
    void setDisplayColor(int index, const QColor &color); ///< does nothing for a place without a colour
    void setHandleZRev(bool reversed);

    QString filePath(const QString &fileName) const; ///< where a file that lies beside the program is
    QString kelmoFile() const;                       ///< where "kelmo.ini" is

    /// How the shell makes the preferences dialogue. Without one the window gets no dialogue.
    using PreferencesFactory = kmpreferenceswidget *(*)(kmmainwidget *window);
    PreferencesFactory preferencesFactory = nullptr;

    /// Remembers the window and makes its preferences dialogue. The window gives a null before it goes away;
    /// the dialogue, which is its child, is forgotten with it.
    void setMainWidget(kmmainwidget *window);

    /// Lists the actions of a menu for the shortcut dialogue, in place of those listed before under the same title.
    /// What stands in parentheses in the title, which is the menu's access key, is cut: "File(&F)" becomes "File".
    void setActionGroup(const QString &menuTitle, const QList<QAction *> &actions);
    const QList<KMActionGroup> &actionGroups() const { return m_actionGroups; }

    bool loadWallpaper(const QString &file); ///< false, and no wallpaper, when the file holds no picture

    double dpiScale = 1.0; ///< set by main right after construction
    int rowHeight = 0;     ///< pixels; this and the next are derived from the application font at start
    int wideRowHeight = 0;
    kmmainwidget *mainWidget = nullptr;
    kmpreferenceswidget *preferences = nullptr;
    QPixmap *wallpaper = nullptr; ///< null where there is none; owned

signals:
    void DPColorChanged(); ///< at least one display colour is another
    void OPHandleZRevCHanged(bool reversed);

private:
    void readRows(const QSettings &file, KMSettingsRow::File which, KMSettingsValues &values) const;
    void writeRows(QSettings &file, KMSettingsRow::File which) const;
    void openPanelFile();

    QString m_directory;
    QList<KMActionGroup> m_actionGroups;
    std::unique_ptr<QSettings> m_panelFile; ///< stays open from the first read on
    std::unique_ptr<QPixmap> m_wallpaper;
};

extern KMSettings *gSettings; ///< null before main has made it and after the shutdown
