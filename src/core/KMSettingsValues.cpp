#include "core/KMSettingsValues.h"

#include <QLocale>
#include <QStringList>

#include <cmath>
#include <cstring>

namespace {

using File = KMSettingsRow::File;
using Scaling = KMSettingsRow::Scaling;
using V = KMSettingsValues;

constexpr double AnyLow = std::numeric_limits<int>::lowest();
constexpr double AnyHigh = std::numeric_limits<int>::max();

/// Numbers whose every other value has a meaning of its own (a mode that draws or limits nothing) have no limits.
QVector<KMSettingsRow> makeRows()
{
    constexpr File K = File::Kelmo;
    constexpr File P = File::Panel;
    return {
        {K, "Global/Language", &V::language, int(QLocale::system().language()), 1, QLocale::LastLanguage},
        {K, "Global/IconSize", &V::iconSize, 18, 8, 128},
        {K, "Global/FontSize", &V::fontSize, 8, 4, 72},
        {K, "Global/FontType", &V::fontType, QString()},
        {K, "Global/Theme", &V::theme, -1, -1, 3},
        {K, "Global/NativeMenu", &V::nativeMenu, true},
        {K, "Global/UseHSV", &V::useHSV, false},
        {K, "Global/UndoCount", &V::undoCount, 32, 0, 100000},
        {K, "Global/Startup", &V::startup, 0},
        {K, "Global/AnimateGui", &V::animateGui, true},
        {K, "AutoSave/EnableAutoSave", &V::enableAutoSave, true},
        {K, "AutoSave/Interval", &V::autoSaveInterval, 60, 1, 1440},
        {K, "AutoSave/ShowDialog", &V::showDialog, true},
        {K, "Backup/EnableBackup", &V::enableBackup, false},
        {K, "Backup/BackupDir", &V::backupDir, QStringLiteral("backup")},
        {K, "GL/Core", &V::glCore, 1},
        {K, "GL/Samples", &V::glSamples, 8, 0, 64, Scaling::FourSamples},
        {K, "GL/SwapInterval", &V::swapInterval, 0, -1, 16},
        {K, "GL/LineWidth", &V::lineWidth, 1.0, 0.1, 64},
        {K, "GL/PointSize", &V::pointSize, 5.0, 0.1, 64, Scaling::Times},
        {K, "GL/LineWidthTools", &V::lineWidthTools, 2.0, 0.1, 64, Scaling::Times},
        {K, "GL/PointSizeTools", &V::pointSizeTools, 5.0, 0.1, 64, Scaling::Times},
        {K, "GL/SmoothTexture", &V::smoothTexture, 1},
        {K, "GL/MaxTextureSize", &V::maxTextureSize, 512, 1, 65536},
        {K, "GL/GradBG", &V::gradBG, 2},
        {K, "GL/FaceBlendRatio", &V::faceBlendRatio, 0.2, 0, 1},
        {K, "GL/NormalLength", &V::normalLength, 10.0, 0, 1000},
        {K, "Navigation/rotateRatio", &V::rotateRatio, 1.0, 0.01, 100, Scaling::Divided},
        {K, "Navigation/zoomRatio", &V::zoomRatio, 1.0, 0.01, 100, Scaling::Divided},
        {K, "Navigation/reverseX", &V::reverseX, false},
        {K, "Navigation/reverseY", &V::reverseY, false},
        {K, "Navigation/reverseW", &V::reverseW, false},
        {K, "Navigation/LRdrag", &V::lrDrag, 1},
        {K, "Navigation/wheel", &V::wheel, 2},
        {K, "Navigation/autoOrtho", &V::autoOrtho, true},
        {K, "Navigation/animateCamera", &V::animateCamera, true},
        {K, "Navigation/CameraRotateLimit", &V::cameraRotateLimit, 4},
        {K, "Operation/OperationMargin", &V::operationMargin, 3.0, 0, 1000},
        {K, "Operation/VertexClickMargin", &V::vertexClickMargin, 12.0, 0, 1000},
        {K, "Operation/SymmetryMargin", &V::symmetryMargin, 4.0, 0, 1000},
        {K, "Operation/SnapMargin", &V::snapMargin, 12.0, 0, 1000},
        {K, "Operation/UVClickMargin", &V::uvClickMargin, 12.0, 0, 1000},
        {K, "Operation/UVSymmetryMargin", &V::uvSymmetryMargin, 4.0, 0, 1000},
        {K, "Operation/UVSnapMargin", &V::uvSnapMargin, 3.0, 0, 1000},
        {K, "Operation/HandleRatio", &V::handleRatio, 1.0, 0.1, 20, Scaling::Times},
        {K, "Operation/HandleZRev", &V::handleZRev, false},
        {K, "UVOperation/ViewMode", &V::uvViewMode, 0},
        {K, "UVOperation/Brightness", &V::uvBrightness, 0.5, 0, 1},
        {P, "customPanel1/Name", &V::customPanel1Name, QString()},
        {P, "customPanel2/Name", &V::customPanel2Name, QString()},
        {P, "customPanel3/Name", &V::customPanel3Name, QString()},
        {P, "customPanel4/Name", &V::customPanel4Name, QString()},
        {P, "PenAndTouch/Mode", &V::penMode, 0},
        {P, "PenAndTouch/EnableTouch", &V::enableTouch, false},
    };
}

/// The double that prints as short as the float does, so that 0.2f stands in the file as 0.2.
double shortestDouble(float value)
{
    for (int digits = 6; digits < 9; ++digits) {
        const double shorter = QString::number(double(value), 'g', digits).toDouble();
        if (float(shorter) == value)
            return shorter;
    }
    return double(value);
}

QVariant toVariant(int value)
{
    return value;
}
QVariant toVariant(float value)
{
    return shortestDouble(value);
}
QVariant toVariant(bool value)
{
    return value;
}
QVariant toVariant(const QString &value)
{
    return value;
}

bool fromVariant(const QVariant &value, int &field)
{
    bool ok = false;
    const int number = value.toInt(&ok);
    if (ok)
        field = number;
    return ok;
}

bool fromVariant(const QVariant &value, float &field)
{
    bool ok = false;
    const double number = value.toDouble(&ok);
    if (!ok || !std::isfinite(number))
        return false;
    field = float(number);
    return true;
}

/// QVariant takes any text for true; a damaged line shall not switch something on.
bool fromVariant(const QVariant &value, bool &field)
{
    const QString text = value.toString().toLower();
    const bool isTrue = text == QLatin1String("true") || text == QLatin1String("1");
    if (!isTrue && text != QLatin1String("false") && text != QLatin1String("0"))
        return false;
    field = isTrue;
    return true;
}

/// A text with commas that was typed into the file without quotes comes as a list.
bool fromVariant(const QVariant &value, QString &field)
{
    if (!value.canConvert<QStringList>())
        return false;
    field = value.toStringList().join(QStringLiteral(", "));
    return true;
}

bool isWithin(int number, const KMSettingsRow &row)
{
    return number >= row.lowest && number <= row.highest;
}

/// The limits are taken at the precision of the field, or 0.01 would lie below a lowest of 0.01.
bool isWithin(float number, const KMSettingsRow &row)
{
    return number >= float(row.lowest) && number <= float(row.highest);
}

bool isWithin(bool, const KMSettingsRow &)
{
    return true;
}

bool isWithin(const QString &, const KMSettingsRow &)
{
    return true;
}

} // namespace

KMSettingsValues::KMSettingsValues(double dpiScale)
    : displayColors(defaultDisplayColors())
{
    for (const KMSettingsRow &row : settingsRows()) {
        row.setValue(*this, row.fallback);
        row.setValue(*this, row.fallbackAt(dpiScale)); // not taken where an absurd scale leaves the limits
    }
}

QVariant KMSettingsRow::value(const KMSettingsValues &values) const
{
    return std::visit([&values](auto field) { return toVariant(values.*field); }, member);
}

bool KMSettingsRow::setValue(KMSettingsValues &values, const QVariant &value) const
{
    return std::visit(
        [&](auto field) {
            auto parsed = std::decay_t<decltype(values.*field)>();
            if (!fromVariant(value, parsed) || !isWithin(parsed, *this))
                return false;
            values.*field = parsed;
            return true;
        },
        member);
}

QVariant KMSettingsRow::fallbackAt(double dpiScale) const
{
    if (!(dpiScale > 1.0))
        return fallback;
    switch (scaling) {
    case Scaling::None:
        return fallback;
    case Scaling::Times:
        return fallback.toDouble() * dpiScale;
    case Scaling::Divided:
        return fallback.toDouble() / dpiScale;
    case Scaling::FourSamples: // a dense screen needs less smoothing, and has more pixels to pay for
        return 4;
    }
    return fallback;
}

const QVector<KMSettingsRow> &settingsRows()
{
    static const QVector<KMSettingsRow> rows = makeRows();
    return rows;
}

const KMSettingsRow *settingsRow(const char *key)
{
    for (const KMSettingsRow &row : settingsRows()) {
        if (std::strcmp(row.key, key) == 0)
            return &row;
    }
    return nullptr;
}
