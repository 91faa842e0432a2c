#pragma once

#include <QString>
#include <QVector>

/// One entry of a choice: the number in the settings and its text.
struct KMSettingChoice
{
    int value;
    const char *label;
};

/// How a page of the preferences shows one key of the settings. Kind of value, default and limits are those of the
/// settings row with the same key. All texts are marked for the context "KMSettingField".
struct KMSettingField
{
    enum Editor { Check, Number, Choice, Font, Folder, Line };

    const char *key;
    const char *label;
    Editor editor = Number;
    QVector<KMSettingChoice> choices = {};
    int choiceOfOthers = -1; ///< entry that stands for any number without one; -1 shows such a number as it is
    const char *suffix = ""; ///< of a number
    double step = 1.0;       ///< of a number
    bool needsRestart = false;
    const char *enabledBy = nullptr; ///< key of the check box on the same page that the field depends on
    const char *heading = nullptr;   ///< of the group that starts with the field
};

/// The fields of the pages that are made of nothing else, from top to bottom.
QVector<KMSettingField> globalFields();
QVector<KMSettingField> autoSaveFields();
QVector<KMSettingField> backupFields();
QVector<KMSettingField> operationFields();
QVector<KMSettingField> navigationFields();
QVector<KMSettingField> penFields();
QVector<KMSettingField> openGLFields();
QVector<KMSettingField> uvFields();
QVector<KMSettingField> customPanelFields(); ///< one for each panel, in the order of the panels

QString settingText(const char *text); ///< the translation of a text of the table
