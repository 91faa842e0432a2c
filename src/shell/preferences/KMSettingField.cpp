#include "shell/preferences/KMSettingField.h"

#include <QCoreApplication>
#include <QLocale>

// Lets lupdate find the texts; they are translated when a page is made.
#define KM_TEXT(text) QT_TRANSLATE_NOOP("KMSettingField", text)

namespace {

using Field = KMSettingField;

Field check(const char *key, const char *label)
{
    return {key, label, Field::Check};
}

Field choice(const char *key, const char *label, const QVector<KMSettingChoice> &choices, int choiceOfOthers = -1)
{
    return {key, label, Field::Choice, choices, choiceOfOthers};
}

Field number(const char *key, const char *label, double step, const char *suffix = "")
{
    return {key, label, Field::Number, {}, -1, suffix, step};
}

Field afterRestart(Field field)
{
    field.needsRestart = true;
    return field;
}

Field enabledBy(const char *key, Field field)
{
    field.enabledBy = key;
    return field;
}

Field underHeading(const char *heading, Field field)
{
    field.heading = heading;
    return field;
}

} // namespace

QVector<KMSettingField> globalFields()
{
    return {underHeading(KM_TEXT("Interface"),
                         afterRestart(choice(
                             "Global/Language", KM_TEXT("Language"),
                             {{QLocale::English, KM_TEXT("English")}, {QLocale::Japanese, KM_TEXT("Japanese")}}, 0))),
            choice("Global/Theme", KM_TEXT("Theme"),
                   {{-1, KM_TEXT("Default")},
                    {0, KM_TEXT("Dark Orange")},
                    {1, KM_TEXT("Dark Blue")},
                    {2, KM_TEXT("Dark Green")},
                    {3, KM_TEXT("Dark Pink")}}),
            choice("Global/IconSize", KM_TEXT("Icon Size"),
                   {{14, KM_TEXT("Small")}, {18, KM_TEXT("Default")}, {24, KM_TEXT("Large")}}),
            afterRestart({"Global/FontType", KM_TEXT("Font"), Field::Font}),
            afterRestart(number("Global/FontSize", KM_TEXT("Font Size"), 1, KM_TEXT(" pt"))),
            check("Global/NativeMenu", KM_TEXT("Native Menu")),
            check("Global/AnimateGui", KM_TEXT("Animate Panels")),
            check("Global/UseHSV", KM_TEXT("Color Sliders in HSV")),
            underHeading(KM_TEXT("Document"), choice("Global/Startup", KM_TEXT("Startup"),
                                                     {{0, KM_TEXT("No Action")}, {1, KM_TEXT("Load Last File")}}, 1)),
            afterRestart(
                choice("Global/UndoCount", KM_TEXT("Undo Count"), {{4, "4"}, {32, "32"}, {64, "64"}, {256, "256"}}))};
}

QVector<KMSettingField> autoSaveFields()
{
    constexpr const char *enabled = "AutoSave/EnableAutoSave";
    return {check(enabled, KM_TEXT("Enable AutoSave")),
            enabledBy(enabled, number("AutoSave/Interval", KM_TEXT("Interval"), 1, KM_TEXT(" min"))),
            enabledBy(enabled, check("AutoSave/ShowDialog", KM_TEXT("Ask Before Saving")))};
}

QVector<KMSettingField> backupFields()
{
    constexpr const char *enabled = "Backup/EnableBackup";
    return {check(enabled, KM_TEXT("Keep a Zip Archive of Every Save")),
            enabledBy(enabled, {"Backup/BackupDir", KM_TEXT("Backup Folder"), Field::Folder})};
}

QVector<KMSettingField> operationFields()
{
    constexpr const char *px = KM_TEXT(" px");
    return {underHeading(KM_TEXT("Mouse"), number("Operation/OperationMargin", KM_TEXT("Drag Starts After"), 1, px)),
            number("Operation/VertexClickMargin", KM_TEXT("Click Margin"), 1, px),
            number("Operation/SymmetryMargin", KM_TEXT("Symmetry Margin"), 1, px),
            number("Operation/SnapMargin", KM_TEXT("Snap Margin"), 1, px),
            underHeading(KM_TEXT("Handle"), number("Operation/HandleRatio", KM_TEXT("Handle Size"), 0.1)),
            check("Operation/HandleZRev", KM_TEXT("Reverse Z Axis of the Handle"))};
}

QVector<KMSettingField> navigationFields()
{
    const QVector<KMSettingChoice> dollyOrZoom = {{1, KM_TEXT("Dolly")}, {2, KM_TEXT("Zoom")}};
    return {underHeading(KM_TEXT("Mouse"), number("Navigation/rotateRatio", KM_TEXT("Rotation Speed"), 0.1)),
            number("Navigation/zoomRatio", KM_TEXT("Zoom Speed"), 0.1),
            choice("Navigation/LRdrag", KM_TEXT("Left and Right Drag"), dollyOrZoom, 0),
            choice("Navigation/wheel", KM_TEXT("Wheel"), dollyOrZoom),
            check("Navigation/reverseX", KM_TEXT("Reverse X")),
            check("Navigation/reverseY", KM_TEXT("Reverse Y")),
            check("Navigation/reverseW", KM_TEXT("Reverse Wheel")),
            underHeading(
                KM_TEXT("Camera"),
                choice("Navigation/CameraRotateLimit", KM_TEXT("Stop at the Poles"),
                       {{4, KM_TEXT("Both")}, {1, KM_TEXT("North")}, {2, KM_TEXT("South")}, {0, KM_TEXT("None")}}, 3)),
            check("Navigation/autoOrtho", KM_TEXT("Orthographic in Standard Views")),
            check("Navigation/animateCamera", KM_TEXT("Animate Camera"))};
}

QVector<KMSettingField> penFields()
{
    return {choice("PenAndTouch/Mode", KM_TEXT("Pen"),
                   {{0, KM_TEXT("MicroSoft (MPP)")}, {1, KM_TEXT("Wacom (WinTab)")}}, 0),
            check("PenAndTouch/EnableTouch", KM_TEXT("Enable Touch"))};
}

QVector<KMSettingField> openGLFields()
{
    constexpr const char *px = KM_TEXT(" px");
    return {underHeading(KM_TEXT("Context"),
                         afterRestart(choice("GL/Core", KM_TEXT("Profile"),
                                             {{0, KM_TEXT("Compatibility 2.1")}, {1, KM_TEXT("Compatibility 4.0")}}))),
            afterRestart(choice("GL/Samples", KM_TEXT("Samples"), {{0, "0"}, {2, "2"}, {4, "4"}, {8, "8"}})),
            afterRestart(choice("GL/SwapInterval", KM_TEXT("V-sync"), {{0, KM_TEXT("Off")}, {1, KM_TEXT("On")}})),
            underHeading(KM_TEXT("Lines and Points"), number("GL/LineWidth", KM_TEXT("Line Width"), 0.5, px)),
            number("GL/PointSize", KM_TEXT("Point Size"), 0.5, px),
            number("GL/LineWidthTools", KM_TEXT("Line Width of Tools"), 0.5, px),
            number("GL/PointSizeTools", KM_TEXT("Point Size of Tools"), 0.5, px),
            number("GL/NormalLength", KM_TEXT("Normal Length"), 1),
            underHeading(KM_TEXT("Surfaces"),
                         choice("GL/GradBG", KM_TEXT("BackGround"),
                                {{0, KM_TEXT("Flat")}, {1, KM_TEXT("Gradation")}, {2, KM_TEXT("Reverse")}})),
            number("GL/FaceBlendRatio", KM_TEXT("Blend of Selected Faces"), 0.05),
            choice("GL/MaxTextureSize", KM_TEXT("Max Texture Size"),
                   {{32, "32"},
                    {64, "64"},
                    {128, "128"},
                    {256, "256"},
                    {512, "512"},
                    {1024, "1024"},
                    {2048, "2048"},
                    {4096, "4096"}}),
            check("GL/SmoothTexture", KM_TEXT("Smooth Textures"))};
}

QVector<KMSettingField> uvFields()
{
    constexpr const char *px = KM_TEXT(" px");
    return {underHeading(KM_TEXT("Mouse"), number("Operation/UVClickMargin", KM_TEXT("Click Margin"), 1, px)),
            number("Operation/UVSymmetryMargin", KM_TEXT("Symmetry Margin"), 1, px),
            number("Operation/UVSnapMargin", KM_TEXT("Snap Margin"), 1, px),
            underHeading(KM_TEXT("Texture"),
                         choice("UVOperation/ViewMode", KM_TEXT("Texture Shown"),
                                {{0, KM_TEXT("Selected Texture")}, {1, KM_TEXT("Texture of the Active Shader")}}, 0)),
            number("UVOperation/Brightness", KM_TEXT("Brightness"), 0.05)};
}

QVector<KMSettingField> customPanelFields()
{
    return {underHeading(KM_TEXT("Names"), {"customPanel1/Name", KM_TEXT("Custom Panel1"), Field::Line}),
            {"customPanel2/Name", KM_TEXT("Custom Panel2"), Field::Line},
            {"customPanel3/Name", KM_TEXT("Custom Panel3"), Field::Line},
            {"customPanel4/Name", KM_TEXT("Custom Panel4"), Field::Line}};
}

QString settingText(const char *text)
{
    return *text ? QCoreApplication::translate("KMSettingField", text) : QString();
}
