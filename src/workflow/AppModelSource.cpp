// SPDX-License-Identifier: GPL-3.0-or-later
// How a source comes in and goes away.
#include "workflow/AppModel.h"

#include "support/Cancellation.h"
#include "support/PathText.h"
#include "support/Text.h"

#include <algorithm>
#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr auto matroskaExtension = "mkv"_L1;

bool isEdited(const ChapterInfo &chapter)
{
    return chapter.mappedTitle != chapter.originalTitle;
}

} // namespace

void AppModel::chooseInputFile()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        OpenPanelRequest request;
        request.title = u"Select Input File"_s;
        request.prompt = u"Choose"_s;
        request.extensions = QStringList{matroskaExtension};
        const std::optional<QUrl> chosen = co_await m_services.panels.choose(request, stop);
        if (chosen)
            requestFile(*chosen);
    });
}

void AppModel::chooseOutputFolder()
{
    m_tasks.start([this](std::stop_token stop) -> QCoro::Task<> {
        OpenPanelRequest request;
        request.title = u"Select Output Folder"_s;
        request.prompt = u"Choose"_s;
        request.target = OpenPanelRequest::Target::folder;
        const std::optional<QUrl> chosen = co_await m_services.panels.choose(request, stop);
        if (chosen)
            outputFolderURL = chosen;
    });
}

bool AppModel::acceptDroppedFile(const QUrl &url)
{
    if (lowerCaseExtension(url) == matroskaExtension) {
        requestFile(url);
        return true;
    }
    alert = AlertContent(u"Unsupported File"_s,
                         u"\"%1\" isn't a Matroska (.mkv) file."_s.arg(lastPathComponent(url)));
    return false;
}

bool AppModel::holdsUserWork() const
{
    const QList<ChapterInfo> all = chapters.value();
    if (!hasSource() || all.isEmpty() || completion.value())
        return false;
    return coverArt.value() || isPreparingCoverArt.value() || std::any_of(all.begin(), all.end(), isEdited);
}

QString AppModel::workSummary() const
{
    const QList<ChapterInfo> all = chapters.value();
    const auto edited = std::count_if(all.begin(), all.end(), isEdited);
    QStringList pieces;
    if (edited > 0)
        pieces.append(counted(edited, u"edited title"_s));
    if (coverArt.value() || isPreparingCoverArt.value())
        pieces.append(u"the cover art you chose"_s);
    return pieces.isEmpty() ? u"the current setup"_s : pieces.join(u" and "_s);
}

void AppModel::requestFile(const QUrl &url)
{
    requestSource(url);
}

void AppModel::requestSource(const PendingSourceChange::Source &source)
{
    if (!holdsUserWork()) {
        load(source);
        return;
    }
    PendingSourceChange change;
    change.source = source;
    change.summary = workSummary();
    pendingSourceChange = change;
}

void AppModel::confirmPendingSourceChange()
{
    const std::optional<PendingSourceChange> change = pendingSourceChange.value();
    if (!change)
        return;
    pendingSourceChange = std::nullopt;
    load(change->source);
}

void AppModel::load(const PendingSourceChange::Source &source)
{
    if (const auto *disc = std::get_if<DiscInfo>(&source))
        loadDisc(*disc);
    else
        loadFile(std::get<QUrl>(source));
}

void AppModel::loadFile(const QUrl &url)
{
    if (completion.value())
        clearInputs();
    stopPreviewAndDiscard();
    inputFileURL = url;
    loadedDisc = std::nullopt;
    chapters = QList<ChapterInfo>();
    sourceAudio = std::nullopt;
    forgetSourcesResults();
    currentState = WorkflowState::Kind::extractingChapters;
    progressMessage = QString();
    m_tasks.start([this, url](std::stop_token stop) { return inspectSource(url, stop); });
}

// What came of the source before, for the next one to take its place.
void AppModel::forgetSourcesResults()
{
    selectedRelease = std::nullopt;
    selectedReleaseID = std::nullopt;
    encodedFiles = QList<QUrl>();
    lastOutputFolder = std::nullopt;
    encodingProgress = 0;
    trackVerifications = QMap<qint64, RipVerification>();
    completion = std::nullopt;
}

// Nothing compares the file on return: of two inspections that overlap, the one that ends last wins. That is
// meant: each moves the state when it ends and tells the user why it failed. With a comparison, a file that
// was replaced or cleared meanwhile would fail in silence.
QCoro::Task<> AppModel::inspectSource(QUrl url, std::stop_token stop)
{
    try {
        const SourceInspection inspection = co_await m_services.chapterExtractor.inspect(url, stop);
        showInspection(inspection);
    } catch (const CancellationError &) {
        throw;
    } catch (...) {
        showInspectionFailure(std::current_exception());
    }
}

void AppModel::showInspection(const SourceInspection &inspection)
{
    chapters = inspection.chapters;
    sourceAudio = inspection.audioStream;
    currentState = WorkflowState::Kind::awaitingUserMapping;
    progressMessage = u"Found %1."_s.arg(counted(inspection.chapters.size(), u"chapter"_s));
}

void AppModel::showInspectionFailure(const std::exception_ptr &error)
{
    chapters = QList<ChapterInfo>();
    sourceAudio = std::nullopt;
    currentState = WorkflowState::error(describe(error).description);
    alert = AlertContent(u"Couldn't Read Chapters"_s, error);
}

// More than forgetSourcesResults() and less: a finished job's summary, its folder and its log stay, and
// whoever clears decides about them.
void AppModel::clearInputs()
{
    stopPreviewAndDiscard();
    inputFileURL = std::nullopt;
    loadedDisc = std::nullopt;
    sourceAudio = std::nullopt;
    chapters = QList<ChapterInfo>();
    for (QProperty<QString> *field : {&artist, &albumTitle, &albumYear, &genre, &discNumber, &discTotal})
        *field = QString();
    searchResults = QList<ReleaseInfo>();
    searchNotices = QList<MetadataSearchOutcome::Notice>();
    selectedRelease = std::nullopt;
    selectedReleaseID = std::nullopt;
    isShowingSearchResults = false;
    clearCoverArt();
    encodedFiles = QList<QUrl>();
    encodingProgress = 0;
    trackVerifications = QMap<qint64, RipVerification>();
    currentState = WorkflowState::Kind::idle;
    progressMessage = QString();
    refreshDiscs();
}

void AppModel::setMappedTitle(qsizetype index, const QString &title)
{
    QList<ChapterInfo> edited = chapters.value();
    if (index < 0 || index >= edited.size())
        return;
    edited[index].mappedTitle = title;
    chapters = edited;
}

void AppModel::resetToSourceTitles()
{
    QList<ChapterInfo> reset = chapters.value();
    for (ChapterInfo &chapter : reset)
        chapter.mappedTitle = chapter.originalTitle;
    chapters = reset;
}

} // namespace tonearm
