// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/settings/AppSettings.h"
#include "artwork/ArtworkFolder.h"
#include "artwork/PreparedCoverArt.h"
#include "support/TaskScope.h"
#include "tageditor/ArtworkFingerprint.h"
#include "tageditor/AudioFileTagService.h"
#include "tageditor/CommonValue.h"
#include "tageditor/EditableAudioFile.h"
#include "tageditor/EditorArtworkState.h"
#include "tageditor/PendingFolderChange.h"
#include "tageditor/Remembered.h"
#include "tageditor/RowOrder.h"
#include "tageditor/SaveReports.h"
#include "tageditor/TagChangeSet.h"
#include "tools/ToolLocation.h"
#include "workflow/AlertContent.h"
#include "workflow/Panels.h"
#include "workflow/records/GenreCatalog.h"

#include <QCoroTask>

#include <QElapsedTimer>
#include <QHash>
#include <QImage>
#include <QList>
#include <QMap>
#include <QProperty>
#include <QSet>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <array>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <stop_token>

namespace tonearm {

/// The tag editor's model: one folder of songs, what the user wants to become of them, and the save. The
/// edits are kept apart from the files; nothing reaches a file before a save. Main thread only.
///
/// Fields are observable, and setting an equal value tells nobody. Screens write `dropsUnwritableTags`, and
/// set the alert, the waiting folder and the question about closing back to absent; all else changes through
/// operations. Derived values read nothing but fields and settings, so that they can be bound.
class MetadataEditorModel
{
public:
    /// So that walking through the table by the arrow keys reads no pictures.
    static constexpr std::chrono::milliseconds usualArtworkDelay{150};

    /// What the model works with. The references have to outlive it.
    struct Services
    {
        ToolLocation tools;
        AudioFileTagService tagService;
        std::shared_ptr<ArtworkFolder> artworkFolder;
        const GenreCatalog &genres;
        Panels &panels;
        /// How long a selection has to stand before its artwork is read; shorter in tests.
        std::chrono::milliseconds artworkDelay = usualArtworkDelay;
    };

    MetadataEditorModel(AppSettings &settings, Services services);

    /// Cancels what runs and waits for it with an event loop: not to be called inside an event handler.
    ~MetadataEditorModel();

    MetadataEditorModel(const MetadataEditorModel &) = delete;
    MetadataEditorModel &operator=(const MetadataEditorModel &) = delete;

    // --- Fields ---------------------------------------------------------------------------------

    QProperty<std::optional<QUrl>> folderURL;
    /// In the order in which they are shown.
    QProperty<QList<EditableAudioFile>> files;
    /// Audio files in the folder that can't be edited here.
    QProperty<qint64> skippedAudioCount;
    /// Whether a folder has been opened since the last reset.
    QProperty<bool> hasLoadedFolder;
    /// The selected rows; never an unreadable one.
    QProperty<QSet<QUrl>> selection;
    QProperty<QList<RowComparator>> sortOrder;
    QProperty<TagChangeSet> changes;
    QProperty<bool> isLoading;
    /// From 0 to 1.
    QProperty<double> loadProgress;
    /// A save checks files or writes them.
    QProperty<bool> isSaving;
    /// What a save does at the moment.
    QProperty<std::optional<QString>> saveStatus;
    /// From 0 to 1.
    QProperty<double> saveProgress;
    /// What came of the last save, until something is edited.
    QProperty<std::optional<QString>> completionMessage;
    /// Whether the user stopped the last save that has a message.
    QProperty<bool> wasSaveCancelled;
    /// Files that the last save couldn't write.
    QProperty<QList<SaveFailure>> saveFailures;
    /// Files that wait for the user's answer, because a save would strip them of tags.
    QProperty<QList<RefusedSave>> refusedSaves;
    /// "Save even if some tags can't be kept".
    QProperty<bool> dropsUnwritableTags;
    /// Files that the last save has stripped of tags.
    QProperty<QList<RefusedSave>> droppedTagReports;
    /// All rows of the save that waits for the answer.
    QProperty<QList<EditableAudioFile>> pendingSaveTargets;
    QProperty<std::optional<AlertContent>> alert;
    QProperty<std::optional<PendingFolderChange>> pendingFolderChange;
    QProperty<bool> isConfirmingCancel;
    /// Why the audio tools can't be used; nothing can be saved then.
    QProperty<std::optional<QString>> ffmpegProblem;
    /// The embedded pictures, as far as they have been read. A preview is absent where the picture couldn't
    /// be decoded.
    QProperty<QHash<QUrl, ArtworkFingerprint>> artworkFingerprints;
    QProperty<bool> isReadingArtwork;
    /// A chosen picture is being made ready. It counts as an edit already, and a save has to wait for it: one
    /// that began without it would write some files with the old picture and take the rest for done.
    QProperty<bool> isPreparingArtwork;
    // The two of the chosen picture are set and cleared together.
    /// The picture that the latest intents to replace one name.
    QProperty<std::optional<PreparedCoverArt>> chosenArtwork;
    /// The same for the screen; absent too if it couldn't be decoded for that.
    QProperty<std::optional<QImage>> chosenArtworkPreview;
    QProperty<QHash<QUrl, QImage>> artworkPreviews;

    // --- The tools ------------------------------------------------------------------------------

    /// Looks whether the audio tools are there; the answer is `ffmpegProblem`.
    void checkTools();

    // --- The folder -----------------------------------------------------------------------------

    void chooseFolder();
    /// Opens the folder that waits.
    void confirmFolderChange();
    /// Opens a folder at once; edits are lost.
    void openFolder(const QUrl &url);
    void stopLoading();

    // --- The table and its selection ------------------------------------------------------------

    /// Sorts the rows too.
    void setSortOrder(const QList<RowComparator> &order);
    void setSelection(const QSet<QUrl> &newSelection);
    /// The same by the numbers of readable rows, in their order.
    void selectPlaces(const QList<qsizetype> &places);
    /// The numbers of the selected rows among `files`, from 0, in their order.
    QList<qsizetype> selectedPlaces() const;
    /// In the order of `files`.
    QList<EditableAudioFile> selectedFiles() const;
    QString selectionSummary() const;
    CommonValue commonValue(EditableTagField field) const;
    /// What an empty text box shows; placeholderOf() tells it without another look at the files.
    QString placeholder(EditableTagField field) const;
    /// The genres of the selected files that aren't among those offered by default.
    QStringList genreSuggestions() const;

    // --- Editing --------------------------------------------------------------------------------

    /// Takes down a text, as it is, for every selected file.
    void setValue(const QString &text, EditableTagField field);
    /// Fields in which the selected files differ, and of which a save would make them alike.
    QList<EditableTagField> overwrittenFields() const;
    std::optional<QString> overwriteWarning() const;
    /// Whether a save would change the file.
    bool isDirty(const EditableAudioFile &row) const;
    /// How many files a save would change.
    qsizetype dirtyCount() const;
    bool hasPendingChanges() const;
    bool canSave() const;

    // --- Artwork --------------------------------------------------------------------------------

    EditorArtworkState artworkState() const;
    /// The sizes of the picture that is shown.
    std::optional<QString> artworkCaption() const;
    std::optional<ViewableArtwork> artworkForViewer() const;
    void chooseArtwork();
    /// Returns whether the file was taken up for the selected files. What the picture is comes out later: a
    /// file that isn't one ends in an alert, and everything stays as it was.
    bool acceptImage(const QUrl &url);
    void removeArtwork();
    bool canRemoveArtwork() const;
    bool hasArtworkOverBudget() const;
    QString optimizeLabel() const;
    bool isOptimizing() const;
    void setOptimizing(bool on);

    // --- Saving ---------------------------------------------------------------------------------

    /// Writes the files that are dirty, or asks first about those that would lose tags.
    void save();
    /// The answer to the question: the tags may go.
    void saveAnyway();
    /// The other one: these files stay as they are, and the others are written.
    void leaveRefusedUnchanged();
    void stopSaving();
    QString refusalMessage() const;
    std::optional<QString> droppedTagSummary() const;

    // --- Closing the window ---------------------------------------------------------------------

    /// Whether the window may close at once; everything is emptied then. Otherwise edits would be lost, and
    /// the user is asked.
    bool requestClose();
    /// Empties the model and stops what runs.
    void reset();

private:
    enum class SaveMode {
        /// Looks first which files would lose tags, and asks.
        checkingFirst,
        /// A file that would lose tags isn't written.
        keepingTags,
        droppingTags
    };

    struct SaveOutcome;
    struct ArtworkReading;

    // What came of reading the files of the folder.
    struct ReadRows
    {
        // In the order of the table.
        QList<EditableAudioFile> rows;
        QSet<QUrl> readable;
        // Where those are among the rows.
        QList<qsizetype> readablePlaces;
    };

    // A picture that is to be made ready for some files.
    struct ArtworkRequest
    {
        QUrl image;
        std::optional<qint64> budget;
        QSet<QUrl> targets;
        bool isAlertWanted = true;
    };

    // What the selected rows hold in one field.
    struct SelectedText
    {
        CommonValue shown;
        // Whatever edits wait.
        CommonValue stored;
        bool isEditedEverywhere = false;
    };

    using SelectedTexts = std::array<SelectedText, allEditableTagFields.size()>;

    // The edits of each row.
    using RowEdits = QList<FieldEdits>;

    const RowEdits &rowEdits() const;
    static SelectedTexts textsOf(const QList<EditableAudioFile> &rows, const QList<qsizetype> &places,
                                 const RowEdits &edits);
    const SelectedText &selectedText(EditableTagField field) const;

    static bool isTaskOf(const std::stop_token &stop, const std::optional<TaskHandle> &task);
    static void cancel(const std::optional<TaskHandle> &task);

    QCoro::Task<> loadFolder(QUrl folder, std::stop_token stop);
    QCoro::Task<> showFolder(QUrl folder, std::stop_token stop);
    static ReadRows readRowsOf(const QList<EditableAudioFile> &rows);
    QCoro::Task<ReadRows> readRows(QList<QUrl> urls, std::stop_token stop);
    void leaveFolder();

    qint64 artworkBudget() const;
    bool isOverBudget(const EditableAudioFile &row) const;
    QSet<QUrl> selectedOverBudget() const;
    QList<ArtworkIntent> selectedIntents() const;
    bool isArtworkPendingForSelection() const;
    std::optional<ArtworkFingerprint> fingerprintOf(const QUrl &url) const;
    QSet<QString> selectedDigests() const;
    EditorArtworkState embeddedArtworkState(const QList<EditableAudioFile> &rows) const;
    void readArtwork();
    QCoro::Task<> readArtworkOf(QList<EditableAudioFile> rows, std::stop_token stop);
    QCoro::Task<ArtworkReading> readArtworkOfRow(EditableAudioFile row, std::stop_token stop);
    std::optional<QImage> knownPreview(const QString &digest) const;
    void record(const QUrl &url, const ArtworkReading &reading);
    void publishArtwork();
    void emptyArtworkCache();
    void requestArtwork(const QUrl &image, bool isAlertWanted);
    void cancelArtworkRequests();
    QCoro::Task<> carryOutArtworkRequests(std::stop_token stop);
    QCoro::Task<> carryOut(ArtworkRequest request, std::stop_token stop);
    void apply(const PreparedCoverArt &prepared, const std::optional<QImage> &preview,
               const QSet<QUrl> &targets);
    QSet<QUrl> selectedURLs() const;
    void setIntents(const QSet<QUrl> &urls, const ArtworkIntent &intent);
    void dropChosenArtwork();
    void discard(const QUrl &picture);

    void startSave(const QList<EditableAudioFile> &targets, SaveMode mode);
    QCoro::Task<> checkAndWrite(QList<EditableAudioFile> targets, std::stop_token stop);
    QCoro::Task<QList<RefusedSave>> refusedBy(QList<EditableAudioFile> targets, std::stop_token stop);
    QCoro::Task<> writeAll(QList<EditableAudioFile> targets, SaveMode mode, std::stop_token stop);
    QCoro::Task<> writeEach(QList<EditableAudioFile> targets, SaveMode mode, SaveOutcome *outcome,
                            std::stop_token stop);
    QCoro::Task<QStringList> writeOne(EditableAudioFile row, SaveMode mode, std::stop_token stop);
    QCoro::Task<> takeUpSaved(QSet<QUrl> saved, std::stop_token folder);
    void showOutcome(const SaveOutcome &outcome);
    void showSaveStep(const QString &verb, qsizetype index, const QList<EditableAudioFile> &targets);
    void endSaveStep();

    AppSettings &m_settings;
    Services m_services;
    // To look thousands of files up by their URL takes long, so that what has been found out goes on by the
    // rows' numbers.
    mutable Remembered<QList<qsizetype>, SharedList<EditableAudioFile>, QSet<QUrl>> m_selectedPlaces;
    mutable Remembered<RowEdits, SharedList<EditableAudioFile>, QHash<QUrl, FieldEdits>> m_rowEdits;
    mutable Remembered<QList<EditableAudioFile>, SharedList<EditableAudioFile>, QList<qsizetype>>
        m_selectedFiles;
    mutable Remembered<SelectedTexts, SharedList<EditableAudioFile>, QList<qsizetype>, SharedList<FieldEdits>>
        m_selectedTexts;
    mutable Remembered<QList<ArtworkIntent>, SharedList<EditableAudioFile>, QHash<QUrl, ArtworkIntent>>
        m_selectedIntents;
    mutable Remembered<QSet<QString>, SharedList<EditableAudioFile>, QHash<QUrl, ArtworkFingerprint>>
        m_selectedDigests;
    mutable Remembered<QSet<QUrl>, SharedList<EditableAudioFile>, QHash<QUrl, ArtworkFingerprint>, qint64>
        m_selectedOverBudget;
    mutable Remembered<qsizetype, SharedList<EditableAudioFile>, SharedList<FieldEdits>, TagChangeSet,
                       QHash<QUrl, ArtworkFingerprint>, qint64>
        m_dirtyCount;
    std::optional<TaskHandle> m_loadTask;
    std::optional<TaskHandle> m_saveTask;
    std::optional<TaskHandle> m_artworkTask;
    // Carries out the requests below one after the other.
    std::optional<TaskHandle> m_preparationTask;
    QList<ArtworkRequest> m_artworkRequests;
    // Artwork is about to be read, or is being read.
    QProperty<bool> m_isAwaitingArtwork;
    // The task that isReadingArtwork belongs to.
    std::stop_token m_artworkReader;
    // What has been read since the fingerprints were last set: they are set now and then, not for each file.
    QHash<QUrl, ArtworkFingerprint> m_freshFingerprints;
    QHash<QUrl, QImage> m_freshPreviews;
    QElapsedTimer m_sinceArtwork;
    QHash<QString, QImage> m_previewsByDigest;
    // Stopped when the folder is left: what a save has yet to show of it isn't shown any more.
    std::stop_source m_folder;
    // Stopped when the fingerprints are emptied: what was read before doesn't count any more.
    std::stop_source m_artworkCache;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
