#include "shell/KMStyle.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QApplication>
#include <QToolBar>

namespace {

/// The colours that a palette is made of. The roles that are left over are mixed from them.
struct ThemeColors
{
    QRgb window;
    QRgb base;
    QRgb button;
    QRgb text;
    QRgb accent;
    QRgb onAccent; ///< text on a selection
    QRgb link;
};

constexpr ThemeColors light = {0xffececee, 0xffffffff, 0xffe4e4e8, 0xff1b1c20, 0xff2a6db5, 0xffffffff, 0xff1d5aa0};

constexpr ThemeColors onDark(QRgb accent, QRgb link)
{
    return {0xff3b3c41, 0xff242528, 0xff4b4c52, 0xffe6e6e8, accent, 0xff101114, link};
}

constexpr ThemeColors darkThemes[KMStyle::LastTheme + 1] = {
    onDark(0xfff08a24, 0xfff7ab5e), // orange
    onDark(0xff5aa9f0, 0xff8cc4f7), // blue
    onDark(0xff63c174, 0xff8ed59b), // green
    onDark(0xfff07ab0, 0xfff7a3c9), // pink
};

QColor mixed(QRgb from, QRgb to, double share)
{
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return QColor(mix(qRed(from), qRed(to)), mix(qGreen(from), qGreen(to)), mix(qBlue(from), qBlue(to)));
}

void setDisabledColors(QPalette &palette, const ThemeColors &colors)
{
    const QColor dimmed = mixed(colors.window, colors.text, 0.55);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::HighlightedText})
        palette.setColor(QPalette::Disabled, role, dimmed);
    palette.setColor(QPalette::Disabled, QPalette::Base, mixed(colors.base, colors.window, 0.6));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, mixed(colors.window, colors.text, 0.15));
}

QPalette makePalette(const ThemeColors &colors)
{
    constexpr QRgb black = 0xff000000;
    constexpr QRgb white = 0xffffffff;
    QPalette palette;
    palette.setColor(QPalette::Window, colors.window);
    palette.setColor(QPalette::Base, colors.base);
    palette.setColor(QPalette::AlternateBase, mixed(colors.base, colors.window, 0.5));
    palette.setColor(QPalette::Button, colors.button);
    palette.setColor(QPalette::ToolTipBase, colors.button);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, colors.text);
    palette.setColor(QPalette::BrightText, colors.accent);
    palette.setColor(QPalette::PlaceholderText, mixed(colors.base, colors.text, 0.65));
    palette.setColor(QPalette::Highlight, colors.accent);
    palette.setColor(QPalette::HighlightedText, colors.onAccent);
    palette.setColor(QPalette::Link, colors.link);
    palette.setColor(QPalette::LinkVisited, mixed(colors.link, colors.text, 0.4));

    // Bevels and frames: "fusion" draws its outlines from these.
    palette.setColor(QPalette::Light, mixed(colors.button, white, 0.25));
    palette.setColor(QPalette::Midlight, mixed(colors.button, white, 0.12));
    palette.setColor(QPalette::Mid, mixed(colors.button, black, 0.3));
    palette.setColor(QPalette::Dark, mixed(colors.button, black, 0.45));
    palette.setColor(QPalette::Shadow, black);
    setDisabledColors(palette, colors);
    return palette;
}

bool isDarkTheme(int theme)
{
    return theme > KMStyle::DefaultTheme && theme <= KMStyle::LastTheme;
}

/// Tool bars ask the style for their icon size only when it changes.
void refreshToolBars()
{
    const QWidgetList widgets = QApplication::allWidgets();
    for (QWidget *widget : widgets) {
        QEvent change(QEvent::StyleChange);
        if (qobject_cast<QToolBar *>(widget))
            QApplication::sendEvent(widget, &change);
    }
}

} // namespace

KMStyle::KMStyle(const QString &baseStyle)
    : QProxyStyle(baseStyle)
{
}

QPalette KMStyle::themePalette(int theme)
{
    return makePalette(isDarkTheme(theme) ? darkThemes[theme] : light);
}

void KMStyle::applyTheme(int theme)
{
    m_theme = isDarkTheme(theme) ? theme : DefaultTheme;
    QApplication::setPalette(themePalette(m_theme));
    refreshToolBars();
}

QPalette KMStyle::standardPalette() const
{
    return themePalette(m_theme);
}

int KMStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                       QStyleHintReturn *returned) const
{
    if (hint == SH_DialogButtonBox_ButtonsHaveIcons) // the desktop's icons don't follow our palettes
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, returned);
}

int KMStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ToolBarIconSize:
        return gSettings ? dpiScaled(gSettings->iconSize) : QProxyStyle::pixelMetric(metric, option, widget);
    case PM_ToolBarItemSpacing:
        return dpiScaled(1);
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}
