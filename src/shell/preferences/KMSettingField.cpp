#include "shell/preferences/KMSettingField.h"

#include <QCoreApplication>
#include <QLocale>

// The texts are translated when a page is made.

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
    return {underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Interface"),
                         afterRestart(choice("Global/Language", QT_TRANSLATE_NOOP("KMSettingField", "Language"),
                                             {{QLocale::English, QT_TRANSLATE_NOOP("KMSettingField", "English")},
                                              {QLocale::Japanese, QT_TRANSLATE_NOOP("KMSettingField", "Japanese")}},
                                             0))),
            choice("Global/Theme", QT_TRANSLATE_NOOP("KMSettingField", "Theme"),
                   {{-1, QT_TRANSLATE_NOOP("KMSettingField", "Default")},
                    {0, QT_TRANSLATE_NOOP("KMSettingField", "Dark Orange")},
                    {1, QT_TRANSLATE_NOOP("KMSettingField", "Dark Blue")},
                    {2, QT_TRANSLATE_NOOP("KMSettingField", "Dark Green")},
                    {3, QT_TRANSLATE_NOOP("KMSettingField", "Dark Pink")}}),
            choice("Global/IconSize", QT_TRANSLATE_NOOP("KMSettingField", "Icon Size"),
                   {{14, QT_TRANSLATE_NOOP("KMSettingField", "Small")},
                    {18, QT_TRANSLATE_NOOP("KMSettingField", "Default")},
                    {24, QT_TRANSLATE_NOOP("KMSettingField", "Large")}}),
            afterRestart({"Global/FontType", QT_TRANSLATE_NOOP("KMSettingField", "Font"), Field::Font}),
            afterRestart(number("Global/FontSize", QT_TRANSLATE_NOOP("KMSettingField", "Font Size"), 1,
                                QT_TRANSLATE_NOOP("KMSettingField", " pt"))),
            check("Global/NativeMenu", QT_TRANSLATE_NOOP("KMSettingField", "Native Menu")),
            check("Global/AnimateGui", QT_TRANSLATE_NOOP("KMSettingField", "Animate Panels")),
            check("Global/UseHSV", QT_TRANSLATE_NOOP("KMSettingField", "Color Sliders in HSV")),
            underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Document"),
                         choice("Global/Startup", QT_TRANSLATE_NOOP("KMSettingField", "Startup"),
                                {{0, QT_TRANSLATE_NOOP("KMSettingField", "No Action")},
                                 {1, QT_TRANSLATE_NOOP("KMSettingField", "Load Last File")}},
                                1)),
            afterRestart(choice("Global/UndoCount", QT_TRANSLATE_NOOP("KMSettingField", "Undo Count"),
                                {{4, "4"}, {32, "32"}, {64, "64"}, {256, "256"}}))};
}

QVector<KMSettingField> autoSaveFields()
{
    constexpr const char *enabled = "AutoSave/EnableAutoSave";
    return {check(enabled, QT_TRANSLATE_NOOP("KMSettingField", "Enable AutoSave")),
            enabledBy(enabled, number("AutoSave/Interval", QT_TRANSLATE_NOOP("KMSettingField", "Interval"), 1,
                                      QT_TRANSLATE_NOOP("KMSettingField", " min"))),
            enabledBy(enabled, check("AutoSave/ShowDialog", QT_TRANSLATE_NOOP("KMSettingField", "Ask Before Saving")))};
}

QVector<KMSettingField> backupFields()
{
    constexpr const char *enabled = "Backup/EnableBackup";
    return {
        check(enabled, QT_TRANSLATE_NOOP("KMSettingField", "Keep a Zip Archive of Every Save")),
        enabledBy(enabled, {"Backup/BackupDir", QT_TRANSLATE_NOOP("KMSettingField", "Backup Folder"), Field::Folder})};
}

QVector<KMSettingField> operationFields()
{
    constexpr const char *px = QT_TRANSLATE_NOOP("KMSettingField", " px");
    return {underHeading(
                QT_TRANSLATE_NOOP("KMSettingField", "Mouse"),
                number("Operation/OperationMargin", QT_TRANSLATE_NOOP("KMSettingField", "Drag Starts After"), 1, px)),
            number("Operation/VertexClickMargin", QT_TRANSLATE_NOOP("KMSettingField", "Click Margin"), 1, px),
            number("Operation/SymmetryMargin", QT_TRANSLATE_NOOP("KMSettingField", "Symmetry Margin"), 1, px),
            number("Operation/SnapMargin", QT_TRANSLATE_NOOP("KMSettingField", "Snap Margin"), 1, px),
            underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Handle"),
                         number("Operation/HandleRatio", QT_TRANSLATE_NOOP("KMSettingField", "Handle Size"), 0.1)),
            check("Operation/HandleZRev", QT_TRANSLATE_NOOP("KMSettingField", "Reverse Z Axis of the Handle"))};
}

QVector<KMSettingField> navigationFields()
{
    const QVector<KMSettingChoice> dollyOrZoom = {{1, QT_TRANSLATE_NOOP("KMSettingField", "Dolly")},
                                                  {2, QT_TRANSLATE_NOOP("KMSettingField", "Zoom")}};
    return {
        underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Mouse"),
                     number("Navigation/rotateRatio", QT_TRANSLATE_NOOP("KMSettingField", "Rotation Speed"), 0.1)),
        number("Navigation/zoomRatio", QT_TRANSLATE_NOOP("KMSettingField", "Zoom Speed"), 0.1),
        choice("Navigation/LRdrag", QT_TRANSLATE_NOOP("KMSettingField", "Left and Right Drag"), dollyOrZoom, 0),
        choice("Navigation/wheel", QT_TRANSLATE_NOOP("KMSettingField", "Wheel"), dollyOrZoom),
        check("Navigation/reverseX", QT_TRANSLATE_NOOP("KMSettingField", "Reverse X")),
        check("Navigation/reverseY", QT_TRANSLATE_NOOP("KMSettingField", "Reverse Y")),
        check("Navigation/reverseW", QT_TRANSLATE_NOOP("KMSettingField", "Reverse Wheel")),
        underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Camera"),
                     choice("Navigation/CameraRotateLimit", QT_TRANSLATE_NOOP("KMSettingField", "Stop at the Poles"),
                            {{4, QT_TRANSLATE_NOOP("KMSettingField", "Both")},
                             {1, QT_TRANSLATE_NOOP("KMSettingField", "North")},
                             {2, QT_TRANSLATE_NOOP("KMSettingField", "South")},
                             {0, QT_TRANSLATE_NOOP("KMSettingField", "None")}},
                            3)),
        check("Navigation/autoOrtho", QT_TRANSLATE_NOOP("KMSettingField", "Orthographic in Standard Views")),
        check("Navigation/animateCamera", QT_TRANSLATE_NOOP("KMSettingField", "Animate Camera"))};
}

QVector<KMSettingField> penFields()
{
    return {choice("PenAndTouch/Mode", QT_TRANSLATE_NOOP("KMSettingField", "Pen"),
                   {{0, QT_TRANSLATE_NOOP("KMSettingField", "MicroSoft (MPP)")},
                    {1, QT_TRANSLATE_NOOP("KMSettingField", "Wacom (WinTab)")}},
                   0),
            check("PenAndTouch/EnableTouch", QT_TRANSLATE_NOOP("KMSettingField", "Enable Touch"))};
}

QVector<KMSettingField> openGLFields()
{
    constexpr const char *px = QT_TRANSLATE_NOOP("KMSettingField", " px");
    return {underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Context"),
                         afterRestart(choice("GL/Core", QT_TRANSLATE_NOOP("KMSettingField", "Profile"),
                                             {{0, QT_TRANSLATE_NOOP("KMSettingField", "Compatibility 2.1")},
                                              {1, QT_TRANSLATE_NOOP("KMSettingField", "Compatibility 4.0")}}))),
            afterRestart(choice("GL/Samples", QT_TRANSLATE_NOOP("KMSettingField", "Samples"),
                                {{0, "0"}, {2, "2"}, {4, "4"}, {8, "8"}})),
            afterRestart(choice(
                "GL/SwapInterval", QT_TRANSLATE_NOOP("KMSettingField", "V-sync"),
                {{0, QT_TRANSLATE_NOOP("KMSettingField", "Off")}, {1, QT_TRANSLATE_NOOP("KMSettingField", "On")}})),
            underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Lines and Points"),
                         number("GL/LineWidth", QT_TRANSLATE_NOOP("KMSettingField", "Line Width"), 0.5, px)),
            number("GL/PointSize", QT_TRANSLATE_NOOP("KMSettingField", "Point Size"), 0.5, px),
            number("GL/LineWidthTools", QT_TRANSLATE_NOOP("KMSettingField", "Line Width of Tools"), 0.5, px),
            number("GL/PointSizeTools", QT_TRANSLATE_NOOP("KMSettingField", "Point Size of Tools"), 0.5, px),
            number("GL/NormalLength", QT_TRANSLATE_NOOP("KMSettingField", "Normal Length"), 1),
            underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Surfaces"),
                         choice("GL/GradBG", QT_TRANSLATE_NOOP("KMSettingField", "BackGround"),
                                {{0, QT_TRANSLATE_NOOP("KMSettingField", "Flat")},
                                 {1, QT_TRANSLATE_NOOP("KMSettingField", "Gradation")},
                                 {2, QT_TRANSLATE_NOOP("KMSettingField", "Reverse")}})),
            number("GL/FaceBlendRatio", QT_TRANSLATE_NOOP("KMSettingField", "Blend of Selected Faces"), 0.05),
            choice("GL/MaxTextureSize", QT_TRANSLATE_NOOP("KMSettingField", "Max Texture Size"),
                   {{32, "32"},
                    {64, "64"},
                    {128, "128"},
                    {256, "256"},
                    {512, "512"},
                    {1024, "1024"},
                    {2048, "2048"},
                    {4096, "4096"}}),
            check("GL/SmoothTexture", QT_TRANSLATE_NOOP("KMSettingField", "Smooth Textures"))};
}

QVector<KMSettingField> uvFields()
{
    constexpr const char *px = QT_TRANSLATE_NOOP("KMSettingField", " px");
    return {underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Mouse"),
                         number("Operation/UVClickMargin", QT_TRANSLATE_NOOP("KMSettingField", "Click Margin"), 1, px)),
            number("Operation/UVSymmetryMargin", QT_TRANSLATE_NOOP("KMSettingField", "Symmetry Margin"), 1, px),
            number("Operation/UVSnapMargin", QT_TRANSLATE_NOOP("KMSettingField", "Snap Margin"), 1, px),
            underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Texture"),
                         choice("UVOperation/ViewMode", QT_TRANSLATE_NOOP("KMSettingField", "Texture Shown"),
                                {{0, QT_TRANSLATE_NOOP("KMSettingField", "Selected Texture")},
                                 {1, QT_TRANSLATE_NOOP("KMSettingField", "Texture of the Active Shader")}},
                                0)),
            number("UVOperation/Brightness", QT_TRANSLATE_NOOP("KMSettingField", "Brightness"), 0.05)};
}

QVector<KMSettingField> customPanelFields()
{
    return {underHeading(QT_TRANSLATE_NOOP("KMSettingField", "Names"),
                         {"customPanel1/Name", QT_TRANSLATE_NOOP("KMSettingField", "Custom Panel1"), Field::Line}),
            {"customPanel2/Name", QT_TRANSLATE_NOOP("KMSettingField", "Custom Panel2"), Field::Line},
            {"customPanel3/Name", QT_TRANSLATE_NOOP("KMSettingField", "Custom Panel3"), Field::Line},
            {"customPanel4/Name", QT_TRANSLATE_NOOP("KMSettingField", "Custom Panel4"), Field::Line}};
}

QString settingText(const char *text)
{
    return *text ? QCoreApplication::translate("KMSettingField", text) : QString();
}
