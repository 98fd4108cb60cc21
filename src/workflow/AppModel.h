// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/settings/AppSettings.h"
#include "artwork/ArtworkFolder.h"
#include "artwork/PreparedCoverArt.h"
#include "disc/DiscInfo.h"
#include "disc/DiscRippingService.h"
#include "disc/OpticalDiscScanning.h"
#include "disc/TrackRipping.h"
#include "encoding/AudioEncodingService.h"
#include "encoding/AudioPreviewPlayer.h"
#include "encoding/ChapterExtractionService.h"
#include "encoding/ChapterPreviewService.h"
#include "encoding/EncodingLog.h"
#include "encoding/EncodingProgress.h"
#include "metadata/CoverArtService.h"
#include "metadata/MetadataSearchService.h"
#include "support/FilePresence.h"
#include "support/TaskScope.h"
#include "tools/CDParanoiaInstallation.h"
#include "tools/ProcessRunner.h"
#include "tools/ToolLocation.h"
#include "workflow/AlertContent.h"
#include "workflow/DiscEjector.h"
#include "workflow/EncodingCompletion.h"
#include "workflow/FFmpegStatus.h"
#include "workflow/FileViewer.h"
#include "workflow/Panels.h"
#include "workflow/PendingClose.h"
#include "workflow/PendingOverwrite.h"
#include "workflow/PendingSourceChange.h"
#include "workflow/WorkflowState.h"
#include "workflow/records/AudioMetadata.h"
#include "workflow/records/AudioStreamInfo.h"
#include "workflow/records/ChapterInfo.h"
#include "workflow/records/ReleaseInfo.h"
#include "workflow/records/RipVerification.h"

#include <QCoroTask>

#include <QImage>
#include <QList>
#include <QMap>
#include <QObject>
#include <QProperty>
#include <QUrl>

#include <chrono>
#include <exception>
#include <functional>
#include <memory>
#include <optional>

namespace tonearm {

class JobCoverArt;
struct DiscTrackJob;
struct EncodingJob;

/// The main window's model: everything the window shows, the long-running tasks, and what may happen
/// next. Main thread only.
///
/// Fields are observable, and setting an equal value tells nobody. Screens write the album fields,
/// `outputFolderURL`, and set the waiting questions and the alert back to absent; all else changes
/// through operations. Derived values can be bound: they read nothing but fields and settings, except
/// usesSecureRipping.
class AppModel
{
public:
    using FFmpegStatus = tonearm::FFmpegStatus;

    /// What the model works with. The references have to outlive it.
    struct Services
    {
        ToolLocation tools;
        ProcessRunner processRunner;
        ChapterExtractionService chapterExtractor;
        AudioEncodingService encoder;
        MetadataSearchService &metadataSearch;
        CoverArtService &coverArtService;
        std::shared_ptr<ArtworkFolder> artworkFolder;
        ChapterPreviewService &previewService;
        AudioPreviewPlayer &previewPlayer;
        OpticalDiscScanning &discService;
        DiscRippingService &discRipper;
        TrackRipping &secureRipper;
        DiscEjector &discEjector;
        Panels &panels;
        FileViewer &fileViewer;
        /// The application's version, for the logs.
        QString appVersion;
        /// How long a find of the audio tools is announced.
        std::chrono::milliseconds announcementTime = std::chrono::seconds(5);
    };

    AppModel(AppSettings &settings, Services services);

    /// Cancels what runs and waits for it with an event loop: not to be called inside an event handler.
    ~AppModel();

    AppModel(const AppModel &) = delete;
    AppModel &operator=(const AppModel &) = delete;

    // --- Fields ---------------------------------------------------------------------------------

    QProperty<std::optional<QUrl>> inputFileURL;
    QProperty<std::optional<QUrl>> outputFolderURL;
    /// Audio CDs on offer, not loaded.
    QProperty<QList<DiscInfo>> detectedDiscs;
    /// The audio CD that is the source.
    QProperty<std::optional<DiscInfo>> loadedDisc;
    QProperty<QString> artist;
    QProperty<QString> albumTitle;
    QProperty<QString> albumYear;
    QProperty<QString> genre;
    QProperty<QString> discNumber;
    QProperty<QString> discTotal;
    QProperty<QList<ReleaseInfo>> searchResults;
    /// The row chosen in the results; the sheet sets it before it calls selectRelease.
    QProperty<std::optional<QString>> selectedReleaseID;
    /// The release whose tracklist was loaded.
    QProperty<std::optional<ReleaseInfo>> selectedRelease;
    /// What went wrong in the last search.
    QProperty<QList<MetadataSearchOutcome::Notice>> searchNotices;
    QProperty<bool> isShowingSearchResults;
    /// A search or the lookup of a disc is under way.
    QProperty<bool> isLoadingReleases;
    /// Whether `searchResults` are, or will be, those of a disc's lookup, as against a search's.
    QProperty<bool> isDiscLookup;
    /// The release whose tracklist is being fetched.
    QProperty<std::optional<QString>> loadingReleaseID;
    // The three of the cover are set and cleared together.
    QProperty<std::optional<PreparedCoverArt>> coverArt;
    /// The cover as the screen shows it; absent too if it couldn't be decoded for that.
    QProperty<std::optional<QImage>> coverArtPreview;
    /// Where the cover came from.
    QProperty<std::optional<QString>> coverArtOrigin;
    QProperty<bool> isFetchingArtwork;
    /// Whether a file that the user has chosen is being made ready. A job that is started meanwhile waits for
    /// it.
    QProperty<bool> isPreparingCoverArt;
    /// The units of the job. The user edits `mappedTitle`, through setMappedTitle.
    QProperty<QList<ChapterInfo>> chapters;
    QProperty<std::optional<AudioStreamInfo>> sourceAudio;
    /// What is known of a disc's tracks after a job, by the chapters' ids.
    QProperty<QMap<qint64, RipVerification>> trackVerifications;
    /// The chapter whose start plays.
    QProperty<std::optional<qint64>> previewingChapterID;
    /// The chapter whose start is being cut out.
    QProperty<std::optional<qint64>> preparingPreviewChapterID;
    QProperty<WorkflowState> currentState;
    /// The last message of the workflow.
    QProperty<QString> progressMessage;
    /// From 0 to 1.
    QProperty<double> encodingProgress;
    /// The output of the last finished job.
    QProperty<QList<QUrl>> encodedFiles;
    QProperty<std::optional<QUrl>> lastLogURL;
    /// Where the last finished job wrote.
    QProperty<std::optional<QUrl>> lastOutputFolder;
    /// Set when a job finishes.
    QProperty<std::optional<EncodingCompletion>> completion;
    QProperty<std::optional<AlertContent>> alert;
    QProperty<std::optional<PendingSourceChange>> pendingSourceChange;
    QProperty<std::optional<PendingOverwrite>> pendingOverwrite;
    QProperty<std::optional<PendingClose>> pendingClose;
    QProperty<FFmpegStatus> ffmpegStatus{FFmpegStatus(FFmpegChecking{})};
    QProperty<bool> didJustFindFFmpeg;
    QProperty<std::optional<CDParanoiaInstallation>> cdParanoiaInstallation;

    // A handle that is present means that the task runs. encodingTask alone tells whether a job is
    // under way.
    QProperty<std::optional<TaskHandle>> searchTask;
    QProperty<std::optional<TaskHandle>> encodingTask;
    QProperty<std::optional<TaskHandle>> ffmpegCheckTask;
    QProperty<std::optional<TaskHandle>> confirmationTask;
    QProperty<std::optional<TaskHandle>> previewTask;
    QProperty<std::optional<TaskHandle>> paranoiaCheckTask;

    // --- Derived values -------------------------------------------------------------------------

    bool hasSource() const;
    bool isDiscSource() const;
    /// The disc's name or the file's.
    std::optional<QString> sourceName() const;
    bool isFFmpegInstalled() const;
    bool canEncode() const;
    bool canSearch() const;
    bool canPreview() const;
    bool canEject() const;
    /// Whether a job would read the disc with error correction.
    bool usesSecureRipping() const;
    /// The status line.
    QString statusText() const;
    /// Those without a title that counts.
    QList<ChapterInfo> untitledChapters() const;
    /// The album as the encoder would get it now.
    AudioMetadata currentMetadata() const;
    /// Where the files would go; nothing without an output folder.
    std::optional<QUrl> destinationFolder() const;
    /// The part of it beneath the output folder, if there is one.
    std::optional<QString> destinationSubpath() const;
    std::optional<QString> yearWarning() const;
    /// What to tell when the chosen release and the source differ in their number of tracks.
    std::optional<QString> tracklistMismatchNote() const;
    bool canFetchArtwork() const;
    /// The text of the menu entry that calls fetchArtwork.
    QString fetchArtworkTitle() const;
    /// The cover's origin and sizes in one line.
    std::optional<QString> coverArtCaption() const;
    /// Set when the cover is larger than the size limit of the settings.
    std::optional<QString> coverArtWarning() const;
    bool canRevealOutput() const;
    /// Whether the last job's log is still there, as far as is known: it is watched, and lookForLog
    /// makes sure.
    bool hasLogFile() const;
    QString clearButtonTitle() const;
    /// Whether clearOrEject() ejects the disc.
    bool willEject() const;
    /// Whether the user has agreed to stop the job and close, and the job has ended.
    bool isReadyToClose() const;

    // --- Source ---------------------------------------------------------------------------------

    void chooseInputFile();
    void chooseOutputFolder();
    /// Returns whether the drop was taken.
    bool acceptDroppedFile(const QUrl &url);
    /// The file is to become the source, after a question if that would discard work.
    void requestFile(const QUrl &url);
    /// The same for a disc.
    void requestDisc(const DiscInfo &disc);
    void confirmPendingSourceChange();
    /// Takes the file up at once.
    void loadFile(const QUrl &url);
    /// The same for a disc; starts its lookup.
    void loadDisc(const DiscInfo &disc);
    /// Empties the window for the next job.
    void clearInputs();
    /// `index` is the chapter's place in `chapters`; one that isn't there is ignored.
    void setMappedTitle(qsizetype index, const QString &title);
    void resetToSourceTitles();

    // --- Discs ----------------------------------------------------------------------------------

    /// Looks which discs are there.
    void refreshDiscs();
    /// Ejects the loaded disc, or else the first on offer.
    void ejectCurrentDisc();
    void ejectDisc(const DiscInfo &disc);

    // --- Preview --------------------------------------------------------------------------------

    /// How much of a chapter is played.
    static constexpr double previewSeconds = chapterPreviewSeconds;

    /// Plays the start of a chapter, or stops it if it plays.
    void togglePreview(const ChapterInfo &chapter);
    void stopPreview();

    // --- Releases -------------------------------------------------------------------------------

    /// Asks the services for releases by the artist and the album as they are typed.
    void startSearch();
    /// Fetches the tracklist of one of the results and takes the release over; an id that isn't there
    /// clears `selectedRelease`.
    void selectRelease(const std::optional<QString> &id);
    /// Copies the titles onto the chapters by position.
    void applyTracklist(const QList<TrackInfo> &tracks);

    // --- Cover art ------------------------------------------------------------------------------

    void chooseCoverArt();
    /// Returns whether the file was taken up. What the picture is comes out later: a file that isn't
    /// one ends in an alert, and the art stays as it was.
    bool useCoverArtFile(const QUrl &url);
    /// Downloads the art of `selectedRelease`.
    void fetchArtwork();
    void clearCoverArt();

    // --- Encoding -------------------------------------------------------------------------------

    /// Starts the job, or asks first if it would overwrite files.
    void startEncoding();
    void confirmOverwrite();
    void cancelEncoding();
    /// Has hasLogFile checked in the background. For the moment before the user is shown it.
    void lookForLog();
    /// Shows the log in the file viewer, or without one the output.
    void revealLog();
    void revealOutput();
    /// The action of the button with clearButtonTitle.
    void clearOrEject();

    // --- Tools ----------------------------------------------------------------------------------

    /// Starts a check unless ffmpeg is known or a check runs.
    void checkFFmpeg();
    void checkCDParanoia();

    // --- Closing the window ---------------------------------------------------------------------

    /// Whether the window may close at once. Otherwise a job runs, and the user is asked.
    bool requestClose();
    /// Stops the job; the window closes when isReadyToClose.
    void confirmPendingClose();

private:
    QString messageOfState() const;
    bool holdsUserWork() const;
    QString workSummary() const;
    void requestSource(const PendingSourceChange::Source &source);
    void load(const PendingSourceChange::Source &source);
    void forgetSourcesResults();
    void showInspection(const SourceInspection &inspection);
    void showInspectionFailure(const std::exception_ptr &error);

    QCoro::Task<> inspectSource(QUrl url, std::stop_token stop);
    QCoro::Task<> search(QString byArtist, QString title, std::stop_token stop);
    void showFound(const MetadataSearchOutcome &outcome);
    QCoro::Task<> lookUpDisc(DiscInfo disc, std::stop_token stop);
    QCoro::Task<> loadRelease(ReleaseInfo summary, std::stop_token stop);
    void takeOver(const ReleaseInfo &release);

    std::optional<qint64> artworkBudget() const;
    QCoro::Task<> prepareUserFile(QUrl url, int choice, std::stop_token stop);
    QCoro::Task<DownloadedCoverArt> fetchCover(ReleaseInfo release, std::stop_token stop);
    QCoro::Task<> downloadArtwork(ReleaseInfo release, std::stop_token stop);
    void setCoverArt(const PreparedCoverArt &prepared, const std::optional<QImage> &image,
                     const QString &origin);
    void discard(const QList<QUrl> &pictures);
    void endCoverArtPreparation();

    void lookForOverwrites(const QList<ChapterInfo> &agreed);
    QCoro::Task<> checkForOverwrites(QUrl destination, QList<ChapterInfo> agreed, std::stop_token stop);
    QCoro::Task<> untilCoverArtIsReady(std::stop_token stop);
    bool canStartIn(const QUrl &folder) const;
    void beginJob();

    EncodingLog newLog(const QUrl &destination, const AudioMetadata &metadata) const;
    std::optional<QString> coverArtLine() const;
    void prepareDiscJob(EncodingJob &job);
    QCoro::Task<> runJob(std::shared_ptr<EncodingJob> job, std::stop_token stop);
    QCoro::Task<std::shared_ptr<JobCoverArt>> prepareJob(std::shared_ptr<EncodingJob> job);
    QCoro::Task<> writeLog(std::shared_ptr<EncodingJob> job, std::exception_ptr error, bool wasCancelled);
    void followLog();
    std::function<void(double)> posted(std::function<void(double)> show);
    void completeJob(const EncodingJob &job);
    void showCancelledJob(const EncodingJob &job);
    void showFailedJob(const EncodingJob &job, const std::exception_ptr &error);

    QCoro::Task<> encodeChapters(std::shared_ptr<EncodingJob> job, std::stop_token stop);
    void publish(const EncodingProgress &progress);

    QCoro::Task<> ripTracks(std::shared_ptr<EncodingJob> job, std::stop_token stop);
    QCoro::Task<> ripTrack(std::shared_ptr<EncodingJob> job, qsizetype index, std::stop_token stop);
    QCoro::Task<> readTrack(DiscTrackJob *work, std::stop_token stop);
    QCoro::Task<> verifyTrack(DiscTrackJob *work, std::stop_token stop);
    QCoro::Task<> encodeRippedTrack(DiscTrackJob *work, std::stop_token stop);

    void showDiscs(const QList<DiscInfo> &discs);
    void loseDisc();
    QCoro::Task<> giveBack(QUrl volume, std::stop_token stop);

    QCoro::Task<> runPreview(ChapterInfo chapter, std::stop_token stop);
    QCoro::Task<QUrl> startOf(DiscTrack track, std::stop_token stop);
    QCoro::Task<QUrl> previewSource(ChapterInfo chapter, std::stop_token stop);
    void play(const ChapterPreview &preview);
    void stopPreviewAndDiscard();

    QCoro::Task<> detectFFmpeg(std::stop_token stop);
    void announceFind();

    AppSettings &m_settings;
    Services m_services;
    // Receives what other threads post to the model.
    QObject m_context;
    QProperty<bool> m_isClosing;
    FilePresence m_log;
    QPropertyNotifier m_onLogChange;
    // Counts what the user has chosen or cleared, so that a file prepared for an earlier choice is told.
    int m_coverArtChoice = 0;
    // Finished when the choice that is being made ready is ready, or no longer the user's.
    std::shared_ptr<QPromise<void>> m_coverArtPreparation;
    // To be deleted once no job runs.
    QList<QUrl> m_discarded;
    // The chapters whose files the waiting question names.
    QList<ChapterInfo> m_unitsInQuestion;
    // A second press meanwhile changes nothing.
    bool m_isLookingForOverwrites = false;
    // Last, so that the tasks end while all else is still there.
    TaskScope m_tasks;
};

} // namespace tonearm
