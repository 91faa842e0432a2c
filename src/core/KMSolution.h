#pragma once

#include "core/KMContainerNode.h"
#include "core/KMEditFilter.h"
#include "core/KMOutlinePercent.h"
#include "math/Matrix4.h"
#include "math/Vector3.h"

#include <QColor>
#include <QDir>
#include <QPointer>
#include <QSet>

#include <array>

class KMDocumentFormat;
class KMProject;
class KMSessionTool;
class KMSessionViews;
class KMSessionWindow;
class KMUndoCommand;
class QAction;
class QUndoStack;

/// The session around the document: file name and dirty state, what is current, the history, autosave, and
/// update(), which runs after every change and brings derived data and views up to date.
/// It works without a window; each reach to a tool, a view or a panel is null-safe.
class KMSolution : public KMContainerNode
{
    Q_OBJECT
public:
    KMSolution();
    ~KMSolution() override;

    // Wiring, done once by the window, or by KMHeadlessSession where there is none. Nothing here is owned.

    void setUndoStack(QUndoStack *stack); ///< connects its index to update()
    QUndoStack *undoStack() const { return m_stack; }
    void setProject(KMProject *project); ///< follows the project's tree; null before the project is deleted
    KMProject *project() const { return m_project; }
    void setWindow(KMSessionWindow *window) { m_window = window; }
    KMSessionWindow *window() const { return m_window; }
    void setViews(KMSessionViews *views) { m_views = views; }
    KMSessionViews *views() const { return m_views; }
    void setDocumentFormat(KMDocumentFormat *format) { m_format = format; }
    void setTool(KMSessionTool *tool); ///< may be null; tells it with commandChanged()
    KMSessionTool *tool() const { return m_tool; }

    // History

    void push(KMUndoCommand *command); ///< takes the command over; its redo runs at once
    void beginMacro(const QString &text);
    void endMacro();
    int macroDepth() const { return m_macroDepth; }
    void countStep(int step) { m_commandCount += step; } ///< for KMUndoCommand: +1 a redo, -1 an undo
    void forgetCommand(KMUndoCommand *command) { m_history.remove(command); }
    const QSet<KMUndoCommand *> &history() const { return m_history; }
    /// Empties the history without undoing anything; the document counts as not modified. An open macro
    /// must be closed before.
    void clearHistory();
    bool isModified() const { return m_commandCount != m_savedCount; }
    void markSaved() { m_savedCount = m_commandCount; }
    void markUnsaved(); ///< the document counts as modified until it is saved: no step of the history leads to a file

    // Files

    /// Opens a native file in place of the document. On failure, which was shown, the document is empty
    /// and untitled.
    bool load(const QString &path);
    bool save();                          ///< to fileName(); false when there is none or the write failed
    bool saveBackup(const QString &path); ///< to any path, which becomes the file name; a failure clears that
    void newDocument();                   ///< an empty, untitled document; asks nothing
    QString fileName() const { return m_fileName; }
    /// Sets the window title too. Relative paths of textures are meant from the folder of that file from now on.
    void setFileName(const QString &path);
    QDir directory() const { return m_directory; } ///< last used
    void setDirectory(const QDir &directory) { m_directory = directory; }
    /// Writes the log, the history and the text to a file, for the author of a fault report.
    bool writeDump(const QString &path, const QString &text);

    bool isBusy() const { return m_busy; }
    void setBusy(bool busy) { m_busy = busy; } ///< autosave waits

    // What is current

    KMNode *currentNode() const { return m_currentNode; }
    KMNode *previousNode() const { return m_previousNode; }
    void setCurrentNode(KMNode *node); ///< the former one becomes previousNode(); null only clears
    KMNode *currentBone() const { return m_currentBone; }
    void setCurrentBone(KMNode *bone) { m_currentBone = bone; }
    KMNode *currentShader() const { return m_currentShader; }
    void setCurrentShader(KMNode *shader) { m_currentShader = shader; }
    KMNode *currentTexture() const { return m_currentTexture; }
    void setCurrentTexture(KMNode *texture) { m_currentTexture = texture; }
    KMTagBase *currentTag() const { return m_currentTag; }
    void setCurrentTag(KMTagBase *tag) { m_currentTag = tag; }
    void forgetNode(const KMNode *node);  ///< it left the scene: no current pointer keeps it
    void forgetTag(const KMTagBase *tag); ///< likewise
    QAction *lastCommand() const;

    // What the views show; stored in the file

    static constexpr int ViewFlagCount = 11;
    static constexpr int DefaultDisplayMask = 393;
    using ViewFlags = std::array<bool, ViewFlagCount>;
    ViewFlags viewFlags() const { return m_viewFlags; }
    void setViewFlags(const ViewFlags &flags) { m_viewFlags = flags; }
    int displayMask() const { return m_displayMask; }
    void setDisplayMask(int mask) { m_displayMask = mask; }
    bool isNodeFilterOn() const { return m_nodeFilterOn; } ///< the tree hides what its filter leaves out
    void setNodeFilterOn(bool on) { m_nodeFilterOn = on; }
    QColor backgroundColor() const { return m_backgroundColor; }
    void setBackgroundColor(const QColor &color) { m_backgroundColor = color; }
    kvm::Vector3 lightAngles() const { return m_lightAngles; }       ///< degrees about x, y, z
    void setLightAngles(const kvm::Vector3 &degrees);                ///< light matrix and direction follow
    kvm::Vector3 lightDirection() const { return m_lightDirection; } ///< unit vector in world space
    kvm::Matrix4 lightMatrix() const { return m_lightMatrix; }
    int fogDistance() const { return m_fogDistance; }
    void setFogDistance(int distance) { m_fogDistance = distance; }
    bool isFogEnabled() const { return m_fogEnabled; }
    void setFogEnabled(bool enabled) { m_fogEnabled = enabled; }
    bool areViewsReady() const { return m_viewsReady; } ///< the first view exists
    void setViewsReady(bool ready) { m_viewsReady = ready; }

    // How the mouse edits; kept from one document to the next

    const KMEditFilter &editFilter() const { return m_editFilter; }
    void setEditFilter(const KMEditFilter &filter) { m_editFilter = filter; }
    int snapOptions() const { return m_snapOptions; } ///< bits of KMSnapOption
    void setSnapOptions(int options) { m_snapOptions = options; }

    // An add-on's run is bracketed in the history

    bool isInAddon() const { return m_inAddon; }
    void setInAddon(bool running); ///< starting a run makes its first command announce itself

    void refreshViews(int mask); ///< repaints; 31 for all views; nothing before there are views
    void showMessage(const QString &text, int level);
    void setProgress(const QString &text);
    QString titleText() const; ///< what the window title has to be now

public slots:
    void update(int undoIndex); ///< after each move of the history
    /// All command actions end here: remembers the sender as the command to repeat and tells the tool.
    void doCommand();
    void autoSave();                  ///< the autosave timer; waits while a tool or a macro is at work
    void speech(const QString &text); ///< speaks the text, where a voice is installed

signals:
    void commandChanged(KMSessionTool *tool); ///< another tool is in the user's hand
    void addonFirstStack();                   ///< the first command of an add-on's run is about to be pushed
    void currentNodeChanged(KMNode *node);
    void speechRequested(const QString &text);
    void documentReset(); ///< another document stands or is about to be read: panels forget the former one

private:
    void announceAddonStep();
    void dropUnreachableSave();
    QSet<KMNode *> nodesOfHistory() const;
    void refreshNodes();
    void resetSession();
    bool write(const QString &path);
    bool askAutoSave();
    void writeAutoSave();
    void settleTextures();
    void updateTitle();

    int m_commandCount = 0;
    int m_savedCount = 0;
    QDir m_directory = QDir::home();
    QString m_fileName;
    KMSessionTool *m_tool = nullptr;
    KMSessionWindow *m_window = nullptr;
    KMSessionViews *m_views = nullptr;
    KMDocumentFormat *m_format = nullptr;
    KMProject *m_project = nullptr;
    QPointer<QUndoStack> m_stack;
    KMNode *m_currentNode = nullptr;
    KMNode *m_previousNode = nullptr;
    KMNode *m_currentBone = nullptr;
    KMNode *m_currentShader = nullptr;
    KMNode *m_currentTexture = nullptr;
    KMTagBase *m_currentTag = nullptr;
    QPointer<QAction> m_lastCommand;
    ViewFlags m_viewFlags{};
    int m_displayMask = DefaultDisplayMask;
    bool m_nodeFilterOn = false;
    kvm::Vector3 m_lightDirection;
    kvm::Vector3 m_lightAngles;
    kvm::Matrix4 m_lightMatrix;
    QColor m_backgroundColor{127, 127, 127};
    int m_fogDistance = KMOutlinePercent::Usual;
    bool m_fogEnabled = false;
    int m_macroDepth = 0;
    KMEditFilter m_editFilter;
    int m_snapOptions = KMSnapOption::Default;
    bool m_inAddon = false;
    bool m_addonStacked = false;
    bool m_busy = false;
    bool m_viewsReady = false;
    bool m_autoSaveBox = false; // the question is open
    bool m_autoSavePending = false;
    QSet<KMUndoCommand *> m_history; // all commands alive on the stack
};

extern KMSolution *gSolution; ///< the one session; null before the window has made it and after it is gone
