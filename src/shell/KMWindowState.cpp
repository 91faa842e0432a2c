#include "shell/KMWindowState.h"

#include "core/KMSettings.h"
#include "core/KMVersion.h"
#include "shell/KMHelpWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMZenMode.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/kmmainwidget.h"
#include "tools/KMPanelBar.h"

#include <QFile>
#include <QSettings>
#include <QStatusBar>
#include <QTimer>

namespace {

struct BarRow
{
    const char *key;
    KMPanelBar *(kmmainwidget::*bar)() const;
};

constexpr BarRow barRows[] = {
    {"undoPanel/buttonStyle", &kmmainwidget::undoToolBar},
    {"toolPanel/buttonStyle", &kmmainwidget::toolBar},
    {"operationPanel/buttonStyle", &kmmainwidget::envToolBar},
};

QString stateFile()
{
    return gSettings->filePath(QStringLiteral("geometry.ini"));
}

} // namespace

void KMWindowState::save(const kmmainwidget &window)
{
    QSettings file(stateFile(), QSettings::IniFormat);
    file.setValue(QStringLiteral("Version/AppVer"), double(KMVersion::Number));
    file.setValue(QStringLiteral("main/geometry"), window.saveGeometry());
    file.setValue(QStringLiteral("main/windowState"), window.zenMode()->windowState());
    file.setValue(QStringLiteral("main/statusbar"), window.zenMode()->isStatusBarShown());
    file.setValue(QStringLiteral("main/zen"), window.zenMode()->isOn());
    file.setValue(QStringLiteral("help/geometry"), window.helpWidget()->saveGeometry());
    file.setValue(QStringLiteral("help/visible"), !window.helpWidget()->isHidden());
    file.setValue(QStringLiteral("main/viewMode"), window.mainBox()->viewMode());
    file.setValue(QStringLiteral("main/dualX"), window.mainBox()->dualX());
    file.setValue(QStringLiteral("main/quadX"), window.mainBox()->quadX());
    file.setValue(QStringLiteral("main/quadY"), window.mainBox()->quadY());
    file.setValue(QStringLiteral("nodeWidget/resizeMode"), int(window.nodeDock()->resizeMode()));
    for (const BarRow &row : barRows)
        file.setValue(QLatin1String(row.key), int((window.*row.bar)()->toolButtonStyle()));
}

bool KMWindowState::restore(kmmainwidget &window)
{
    if (!QFile::exists(stateFile()))
        return false;
    const QSettings file(stateFile(), QSettings::IniFormat);
    window.restoreGeometry(file.value(QStringLiteral("main/geometry")).toByteArray());
    window.restoreState(file.value(QStringLiteral("main/windowState")).toByteArray());
    window.statusBar()->setVisible(file.value(QStringLiteral("main/statusbar"), true).toBool());
    const auto share = [&file](const char *key) { return file.value(QLatin1String(key), 0.5).toDouble(); };
    window.mainBox()->setDividers(share("main/dualX"), share("main/quadX"), share("main/quadY"));
    window.mainBox()->setViewMode(file.value(QStringLiteral("main/viewMode")).toInt());
    const int mode = file.value(QStringLiteral("nodeWidget/resizeMode"), int(kmnodewidget::FillPanel)).toInt();
    window.nodeDock()->setResizeMode(
        kmnodewidget::ResizeMode(qBound(int(kmnodewidget::FillPanel), mode, int(kmnodewidget::FitContents))));
    for (const BarRow &row : barRows)
        (window.*row.bar)()->setButtonStyle(file.value(QLatin1String(row.key), int(Qt::ToolButtonIconOnly)).toInt());
    window.helpWidget()->restoreGeometry(file.value(QStringLiteral("help/geometry")).toByteArray());
    if (file.value(QStringLiteral("main/zen"), false).toBool())
        window.setZen(true, file.value(QStringLiteral("main/windowState")).toByteArray());
    if (file.value(QStringLiteral("help/visible"), false).toBool())
        QTimer::singleShot(0, window.helpWidget(), &QWidget::show); // not before the window that it floats on
    return true;
}
