#include "core/KMDpi.h"
#include "core/KMIcon.h"
#include "core/KMResources.h"
#include "core/KMSettings.h"
#include "shell/KMStyle.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QPainter>
#include <QTemporaryDir>
#include <QTest>
#include <QToolBar>

#include <cmath>

class tst_KMStyle : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void textIsLegible_data();
    void textIsLegible();
    void applyThemeReachesOpenWidgets();
    void toolBarsFollowTheIconSize();
    void iconTakesThePalette();
    void iconIsSharp();

private:
    KMStyle *m_style = nullptr; // owned by the application
};

namespace {

double linear(double channel)
{
    return channel <= 0.03928 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor &one, const QColor &other)
{
    const double a = luminance(one) + 0.05;
    const double b = luminance(other) + 0.05;
    return qMax(a, b) / qMin(a, b);
}

/// The colour of the most opaque pixel, which is the one that the drawing alone has made.
QColor inkOf(const QPixmap &pixmap)
{
    const QImage image = pixmap.toImage();
    QColor ink(0, 0, 0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() > ink.alpha())
                ink = color;
        }
    }
    return ink;
}

} // namespace

void tst_KMStyle::initTestCase()
{
    initKelmoResources();
    m_style = new KMStyle(QStringLiteral("fusion"));
    QApplication::setStyle(m_style);
}

void tst_KMStyle::textIsLegible_data()
{
    QTest::addColumn<int>("group");
    QTest::addColumn<int>("text");
    QTest::addColumn<int>("ground");
    QTest::addColumn<double>("least");

    const auto row = [](const char *name, QPalette::ColorGroup group, QPalette::ColorRole text,
                        QPalette::ColorRole ground,
                        double least) { QTest::newRow(name) << int(group) << int(text) << int(ground) << least; };
    row("fields", QPalette::Active, QPalette::Text, QPalette::Base, 4.5);
    row("every other row", QPalette::Active, QPalette::Text, QPalette::AlternateBase, 4.5);
    row("labels", QPalette::Active, QPalette::WindowText, QPalette::Window, 4.5);
    row("buttons", QPalette::Active, QPalette::ButtonText, QPalette::Button, 4.5);
    row("tool tips", QPalette::Active, QPalette::ToolTipText, QPalette::ToolTipBase, 4.5);
    row("selection", QPalette::Active, QPalette::HighlightedText, QPalette::Highlight, 4.5);
    row("selection without focus", QPalette::Inactive, QPalette::HighlightedText, QPalette::Highlight, 4.5);
    row("links", QPalette::Active, QPalette::Link, QPalette::Window, 4.5);
    row("links in fields", QPalette::Active, QPalette::Link, QPalette::Base, 4.5);
    row("placeholder", QPalette::Active, QPalette::PlaceholderText, QPalette::Base, 4.5);
    row("disabled field", QPalette::Disabled, QPalette::Text, QPalette::Base, 2.5);
    row("disabled label", QPalette::Disabled, QPalette::WindowText, QPalette::Window, 2.5);
    row("disabled button", QPalette::Disabled, QPalette::ButtonText, QPalette::Button, 2.5);
    row("disabled selection", QPalette::Disabled, QPalette::HighlightedText, QPalette::Highlight, 2.0);
}

void tst_KMStyle::textIsLegible()
{
    QFETCH(int, group);
    QFETCH(int, text);
    QFETCH(int, ground);
    QFETCH(double, least);
    for (int theme = KMStyle::DefaultTheme; theme <= KMStyle::LastTheme; ++theme) {
        const QPalette palette = KMStyle::themePalette(theme);
        const auto color = [&](int role) {
            return palette.color(QPalette::ColorGroup(group), QPalette::ColorRole(role));
        };
        const double found = contrast(color(text), color(ground));
        QVERIFY2(found >= least, qPrintable(QStringLiteral("theme %1: %2").arg(theme).arg(found)));
        if (group == QPalette::Disabled)
            QVERIFY2(found < contrast(palette.color(QPalette::Active, QPalette::ColorRole(text)), color(ground)) - 1.0
                         || text == QPalette::HighlightedText,
                     "disabled text looks enabled");
    }
}

void tst_KMStyle::applyThemeReachesOpenWidgets()
{
    QWidget widget;
    m_style->applyTheme(-1);
    QVERIFY(widget.palette().color(QPalette::Window).lightness() > 200);
    m_style->applyTheme(2);
    QVERIFY(widget.palette().color(QPalette::Window).lightness() < 90);
    QCOMPARE(m_style->standardPalette(), KMStyle::themePalette(2));
    m_style->applyTheme(99);
    QCOMPARE(m_style->theme(), -1);
    QVERIFY(widget.palette().color(QPalette::Window).lightness() > 200);
}

void tst_KMStyle::toolBarsFollowTheIconSize()
{
    QTemporaryDir dir;
    KMSettings settings(dir.path());
    gSettings = &settings;
    QToolBar bar;
    for (const int size : {14, 36}) {
        settings.iconSize = size;
        m_style->applyTheme(-1);
        QCOMPARE(bar.iconSize(), QSize(dpiScaled(size), dpiScaled(size)));
    }
    gSettings = nullptr;
}

void tst_KMStyle::iconTakesThePalette()
{
    const QIcon icon = KMIcon::icon(QStringLiteral("undo"));
    for (const int theme : {-1, 1, -1}) {
        m_style->applyTheme(theme);
        const QPalette palette = QApplication::palette();
        const auto ink = [&icon](QIcon::Mode mode) { return inkOf(icon.pixmap(64, mode)).rgb(); };
        QCOMPARE(ink(QIcon::Normal), palette.color(QPalette::Active, QPalette::WindowText).rgb());
        QCOMPARE(ink(QIcon::Disabled), palette.color(QPalette::Disabled, QPalette::WindowText).rgb());
        QCOMPARE(ink(QIcon::Selected), palette.color(QPalette::Active, QPalette::HighlightedText).rgb());
    }
}

/// An enlarged small picture would have many half-transparent pixels; one drawn at its size has few.
void tst_KMStyle::iconIsSharp()
{
    const QIcon icon = KMIcon::icon(QStringLiteral("undo"));
    const auto softShare = [](const QImage &image) {
        int soft = 0;
        int inked = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const int alpha = qAlpha(image.pixel(x, y));
                inked += alpha > 0;
                soft += alpha > 0 && alpha < 255;
            }
        }
        return double(soft) / inked;
    };
    const QImage large = icon.pixmap(192).toImage();
    QCOMPARE(large.size(), QSize(192, 192));
    const QImage enlarged = icon.pixmap(24).toImage().scaled(192, 192, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QVERIFY(softShare(large) < 0.3);
    QVERIFY(softShare(large) < 0.5 * softShare(enlarged));

    QImage screen(48, 48, QImage::Format_ARGB32_Premultiplied);
    screen.setDevicePixelRatio(2.0);
    screen.fill(Qt::transparent);
    QPainter painter(&screen);
    icon.paint(&painter, QRect(0, 0, 24, 24));
    painter.end();
    screen.setDevicePixelRatio(1.0);
    const QImage direct = icon.pixmap(48).toImage().convertToFormat(screen.format());
    QCOMPARE(screen, direct);
}

KM_TEST(tst_KMStyle);

#include "tst_KMStyle.moc"
