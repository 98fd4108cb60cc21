// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/LicenceWindow.h"

#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/CloseKeys.h"
#include "app/screens/elements/PlaceholderScreen.h"
#include "app/screens/elements/TextStyle.h"
#include "support/Background.h"
#include "support/Cancellation.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextDocument>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize smallestSize(700, 520);
constexpr QSize defaultSize(780, 620);
constexpr int sidebarWidth = 180;
constexpr int itemSpacing = 3;
constexpr int textPadding = 16;

PlaceholderContent noLicences()
{
    return {
        IconName::document, u"No Licences Found"_s,
        u"This copy of Tonearm came without its licence texts. Installing it again should bring them back."_s};
}

// A size smaller than the text around. Family and size are set here by name, since a widget inherits
// what its font only happens to have.
QFont monospaced(const QFont &around)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    const bool isFixed = QFontInfo(font).fixedPitch();
    font.setFamilies(isFixed ? font.families() : QStringList{u"monospace"_s});
    font.setStyleHint(QFont::Monospace);
    font.setPointSizeF(fontOf(TextStyle::callout, around).pointSizeF());
    return font;
}

} // namespace

LicenceWindow::LicenceWindow(const std::optional<QString> &resourceFolder)
    : m_places(new QStackedWidget(this))
{
    setWindowTitle(u"Third-Party Licences"_s);
    setAccessibleRole(this, QAccessible::Window);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_places);
    // Empty until it is known what there is.
    m_places->addWidget(new QWidget(this));
    addCloseKeys(this);
    m_tasks.start(
        [this, resourceFolder](std::stop_token stop) { return findDocuments(resourceFolder, stop); });
}

QCoro::Task<> LicenceWindow::findDocuments(std::optional<QString> resourceFolder, std::stop_token stop)
{
    const auto find = [resourceFolder] { return licenceDocuments(resourceFolder); };
    const QList<LicenceDocument> documents = co_await inBackground(find);
    throwIfCancelled(stop);
    showDocuments(documents);
}

void LicenceWindow::showDocuments(const QList<LicenceDocument> &documents)
{
    m_content.documents = documents;
    QWidget *place = documents.isEmpty() ? new PlaceholderScreen(noLicences(), this) : makeReader();
    m_places->setCurrentIndex(m_places->addWidget(place));
    if (documents.isEmpty())
        return;
    for (const LicenceDocument &document : documents)
        m_list->addItem(sidebarLabel(document));
    m_list->setCurrentRow(0);
    m_list->setFocus();
}

QWidget *LicenceWindow::makeReader()
{
    auto *reader = new QSplitter(this);
    reader->setChildrenCollapsible(false);
    reader->addWidget(makeList());
    reader->addWidget(makeText());
    reader->setStretchFactor(1, 1);
    reader->setSizes({sidebarWidth, defaultSize.width() - sidebarWidth});
    return reader;
}

QWidget *LicenceWindow::makeList()
{
    m_list = new QListWidget(this);
    m_list->setAccessibleName(u"Licences"_s);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setSpacing(itemSpacing);
    connect(m_list, &QListWidget::currentRowChanged, this, &LicenceWindow::select);
    return m_list;
}

QWidget *LicenceWindow::makeText()
{
    m_text = new QPlainTextEdit(this);
    m_text->setFrameShape(QFrame::NoFrame);
    m_text->setReadOnly(true);
    m_text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    // Tab leads on, it isn't typed.
    m_text->setTabChangesFocus(true);
    m_text->setFont(monospaced(font()));
    m_text->document()->setDocumentMargin(textPadding);
    return m_text;
}

void LicenceWindow::select(int row)
{
    if (row < 0 || row >= m_content.documents.size())
        return;
    const LicenceDocument &document = m_content.documents.at(row);
    m_content.selection = document.id;
    m_text->setAccessibleName(sidebarLabel(document));
    m_tasks.start([this, document](std::stop_token stop) { return readDocument(document, stop); });
}

QCoro::Task<> LicenceWindow::readDocument(LicenceDocument document, std::stop_token stop)
{
    const auto read = [document] { return textOf(document); };
    const QString text = co_await inBackground(read);
    throwIfCancelled(stop);
    // The user may have gone on to another meanwhile.
    const int row = m_list->currentRow();
    if (row >= 0 && m_content.documents.at(row) == document)
        m_text->setPlainText(text);
}

} // namespace tonearm
