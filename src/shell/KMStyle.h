#pragma once

#include <QPalette>
#include <QProxyStyle>

/// The look of the program: Qt's "fusion" with palettes of our own, one light and four dark ones that differ in
/// their accent colour, and icon sizes by the settings.
class KMStyle : public QProxyStyle
{
    Q_OBJECT
public:
    static constexpr int DefaultTheme = -1;
    static constexpr int LastTheme = 3;

    explicit KMStyle(const QString &baseStyle = QStringLiteral("fusion"));

    /// -1 the light default, 0 orange, 1 blue, 2 green, 3 pink on dark; any other number stands for the default.
    static QPalette themePalette(int theme);

    /// Gives the whole program the palette of a theme and lets the tool bars take their icon size from the settings
    /// again. Works while windows are open.
    void applyTheme(int theme);
    int theme() const { return m_theme; }

    QPalette standardPalette() const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;
    int styleHint(StyleHint hint, const QStyleOption *option = nullptr, const QWidget *widget = nullptr,
                  QStyleHintReturn *returned = nullptr) const override;

private:
    int m_theme = DefaultTheme;
};
