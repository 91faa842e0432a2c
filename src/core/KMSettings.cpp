#include "core/KMSettings.h"

#include "core/KMPlatform.h"
#include "core/KMVersion.h"
#include "core/KMWallpaper.h"

#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QPixmap>
#include <QRegularExpression>
#include <QSettings>

#include <utility>

KMSettings *gSettings = nullptr;

namespace {

constexpr const char *KelmoFile = "kelmo.ini";
constexpr const char *PanelFile = "panel.ini";
constexpr const char *ColorSection = "DisplayColor/";

constexpr const char *keysOfOlderReleases[] = {
    "Global/Country",     "Global/NativeTitleBar", "Navigation/iconSize", "Navigation/AXISorLR",
    "Navigation/camera0", "Navigation/camera1",    "Navigation/camera2",
};

QString colorKey(const KMDisplayColorRow &row)
{
    return QLatin1String(ColorSection) + QLatin1String(row.key);
}

void readColors(const QSettings &file, KMDisplayColors &colors)
{
    for (const KMDisplayColorRow &row : displayColorRows()) {
        bool ok = false;
        const QRgb rgba = file.value(colorKey(row)).toUInt(&ok);
        if (ok)
            colors[row.index] = QColor::fromRgba(rgba);
    }
}

void writeColors(QSettings &file, const KMDisplayColors &colors)
{
    for (const KMDisplayColorRow &row : displayColorRows())
        file.setValue(colorKey(row), colors[row.index].rgba());
}

bool isDisplayColor(int index)
{
    static const KMDisplayColors known = defaultDisplayColors();
    return index >= 0 && index < DisplayColorCount && known[index].isValid();
}

} // namespace

KMSettings::KMSettings(const QString &directory, QObject *parent)
    : QObject(parent)
    , m_directory(directory)
{
}

KMSettings::~KMSettings() = default;

QString KMSettings::filePath(const QString &fileName) const
{
    return QDir(m_directory.isEmpty() ? QCoreApplication::applicationDirPath() : m_directory).filePath(fileName);
}

QString KMSettings::kelmoFile() const
{
    return filePath(QLatin1String(KelmoFile));
}

void KMSettings::load()
{
    KMSettingsValues read(dpiScale);
    {
        const QSettings file(kelmoFile(), QSettings::IniFormat);
        readRows(file, KMSettingsRow::File::Kelmo, read);
        readColors(file, read.displayColors);
    }
    openPanelFile();
    readRows(*m_panelFile, KMSettingsRow::File::Panel, read);
    apply(read);
    loadWallpaper(desktopWallpaperFile());
}

void KMSettings::save()
{
    QSettings file(kelmoFile(), QSettings::IniFormat);
    file.setValue(QStringLiteral("Version/AppVer"), double(KMVersion::Number));
    for (const char *key : keysOfOlderReleases)
        file.remove(QLatin1String(key));
    writeRows(file, KMSettingsRow::File::Kelmo);
    writeColors(file, displayColors);

    openPanelFile();
    writeRows(*m_panelFile, KMSettingsRow::File::Panel);
    m_panelFile->sync();
}

void KMSettings::openPanelFile()
{
    if (!m_panelFile)
        m_panelFile = std::make_unique<QSettings>(filePath(QLatin1String(PanelFile)), QSettings::IniFormat);
}

void KMSettings::readRows(const QSettings &file, KMSettingsRow::File which, KMSettingsValues &values) const
{
    for (const KMSettingsRow &row : settingsRows()) {
        const QString key = QLatin1String(row.key);
        if (row.file == which && file.contains(key))
            row.setValue(values, file.value(key));
    }
}

void KMSettings::writeRows(QSettings &file, KMSettingsRow::File which) const
{
    for (const KMSettingsRow &row : settingsRows()) {
        if (row.file == which)
            file.setValue(QLatin1String(row.key), row.value(*this));
    }
}

void KMSettings::apply(const KMSettingsValues &values)
{
    const bool colorsChange = displayColors != values.displayColors;
    const bool zRevChanges = handleZRev != values.handleZRev;
    static_cast<KMSettingsValues &>(*this) = values;
    if (colorsChange)
        emit DPColorChanged();
    if (zRevChanges)
        emit OPHandleZRevCHanged(handleZRev);
}

QColor KMSettings::displayColor(int index) const
{
    return isDisplayColor(index) ? displayColors[index] : QColor();
}

void KMSettings::setDisplayColor(int index, const QColor &color)
{
    if (!isDisplayColor(index) || !color.isValid())
        return;
    const QColor stored = QColor::fromRgba(color.rgba()); // what the file can hold of it
    if (std::exchange(displayColors[index], stored) != stored)
        emit DPColorChanged();
}

void KMSettings::setHandleZRev(bool reversed)
{
    if (std::exchange(handleZRev, reversed) != reversed)
        emit OPHandleZRevCHanged(reversed);
}

void KMSettings::setMainWidget(kmmainwidget *window)
{
    mainWidget = window;
    preferences = window && preferencesFactory ? preferencesFactory(window) : nullptr;
}

void KMSettings::setActionGroup(const QString &menuTitle, const QList<QAction *> &actions)
{
    static const QRegularExpression accessKey(QStringLiteral(" ?\\(.+?\\)"));
    KMActionGroup group{QString(menuTitle).remove(accessKey), {}};
    for (QAction *action : actions)
        group.actions.append(action);

    for (KMActionGroup &known : m_actionGroups) {
        if (known.title == group.title) {
            known = group;
            return;
        }
    }
    m_actionGroups.append(group);
}

bool KMSettings::loadWallpaper(const QString &file)
{
    const QPixmap picture = blurredWallpaper(file);
    m_wallpaper = picture.isNull() ? nullptr : std::make_unique<QPixmap>(picture);
    wallpaper = m_wallpaper.get();
    return wallpaper;
}
