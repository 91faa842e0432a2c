#pragma once

#include "core/KMDisplayColors.h"

#include <QString>
#include <QVariant>
#include <QVector>

#include <limits>
#include <variant>

/// Every value that the settings files hold, as plain fields. A field bears the name of its key, with the section
/// in front where the key alone says too little ("GL/Core" is glCore, "AutoSave/Interval" is autoSaveInterval).
/// A copy can be edited at leisure and given back to KMSettings::apply.
struct KMSettingsValues
{
    /// All defaults, corrected for a screen scale above 1 where a size in pixels or a speed per pixel depends on it.
    explicit KMSettingsValues(double dpiScale = 1.0);

    int language; ///< a QLocale::Language
    int iconSize;
    int fontSize;     ///< points
    QString fontType; ///< family; empty for the program's own choice
    int theme;        ///< -1 default, 0 orange, 1 blue, 2 green, 3 pink
    bool nativeMenu;
    bool useHSV;
    int undoCount;
    int startup; ///< 0 nothing, otherwise the last file is loaded
    bool animateGui;

    bool enableAutoSave;
    int autoSaveInterval; ///< minutes
    bool showDialog;      ///< ask before the autosave writes
    bool enableBackup;
    QString backupDir;

    int glCore; ///< 0 compatibility 2.1, 1 compatibility 4.0, 2 core 4.0
    int glSamples;
    int swapInterval;
    float lineWidth;
    float pointSize;
    float lineWidthTools;
    float pointSizeTools;
    int smoothTexture;
    int maxTextureSize;
    int gradBG; ///< 0 flat, 1 gradation, 2 reverse
    float faceBlendRatio;
    float normalLength;

    float rotateRatio;
    float zoomRatio;
    bool reverseX;
    bool reverseY;
    bool reverseW; ///< the wheel
    int lrDrag;    ///< 2: a drag with left and right button always changes the field of view
    int wheel;     ///< 1 dolly, 2 zoom
    bool autoOrtho;
    bool animateCamera;
    int cameraRotateLimit; ///< 4 both poles, 1 north, 2 south, 0 a full turn each way, otherwise none

    float operationMargin; ///< this and the other margins are pixels
    float vertexClickMargin;
    float symmetryMargin;
    float snapMargin;
    float uvClickMargin;
    float uvSymmetryMargin;
    float uvSnapMargin;
    float handleRatio;
    bool handleZRev;

    int uvViewMode; ///< 1 shows the texture of the active shader, 0 the chosen texture
    float uvBrightness;

    QString customPanel1Name;
    QString customPanel2Name;
    QString customPanel3Name;
    QString customPanel4Name;
    int penMode; ///< 1: pressure comes from the tablet service instead of Qt's tablet events
    bool enableTouch;

    KMDisplayColors displayColors;
};

/// One key of a settings file. Reading, writing and the pages of the preferences walk the same list of rows.
struct KMSettingsRow
{
    enum class File { Kelmo, Panel };
    enum class Scaling { None, Times, Divided, FourSamples };
    using Member = std::variant<int KMSettingsValues::*, float KMSettingsValues::*, bool KMSettingsValues::*,
                                QString KMSettingsValues::*>;

    File file;
    const char *key;
    Member member;
    QVariant fallback;
    double lowest = std::numeric_limits<int>::lowest(); ///< numbers outside the limits are not taken
    double highest = std::numeric_limits<int>::max();
    Scaling scaling = Scaling::None;

    QVariant value(const KMSettingsValues &values) const; ///< int, double, bool or QString

    /// Takes a value as it comes from a file or an editor. False, and nothing is changed, when it is not of the type
    /// of the field or outside the limits.
    bool setValue(KMSettingsValues &values, const QVariant &value) const;

    QVariant fallbackAt(double dpiScale) const; ///< the default on a screen of that scale
};

const QVector<KMSettingsRow> &settingsRows();      ///< all keys but the colours, in the order of the files
const KMSettingsRow *settingsRow(const char *key); ///< null when there is no such key
