// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/aboutwindows/AboutView.h"

#include "app/screens/aboutwindows/BundledToolsPanel.h"
#include "app/screens/aboutwindows/LinkButton.h"
#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/AppIcon.h"
#include "app/screens/elements/CloseKeys.h"
#include "app/screens/elements/GroupPanel.h"
#include "app/screens/elements/TextStyle.h"
#include "app/screens/elements/WindowFit.h"
#include "workflow/AppModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QShowEvent>
#include <QVBoxLayout>

#include <utility>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr int windowWidth = 480;
constexpr int padding = 24;
constexpr int groupGap = 20;
constexpr int lineGap = 6;
constexpr int linkGap = 20;
constexpr int iconSide = 96;
constexpr double nameSize = 22;

// Nothing to a screen reader: the name stands below it.
class AppIconView final : public QWidget
{
public:
    explicit AppIconView(QWidget *parent)
        : QWidget(parent)
    {
        setFixedSize(iconSide, iconSide);
        hideFromAssistiveTechnology(this);
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        m_icon.paint(&painter, rect());
    }

private:
    QIcon m_icon = applicationIcon();
};

QLabel *centred(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignHCenter);
    label->setWordWrap(true);
    return label;
}

} // namespace

AboutView::AboutView(AppModel &model, const VersionRecord &record, OpenLink openLink)
    : m_model(model)
    , m_openLink(std::move(openLink))
{
    setWindowTitle(u"About Tonearm"_s);
    setAccessibleRole(this, QAccessible::Window);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(padding, padding, padding, padding);
    column->setSpacing(groupGap);
    column->addWidget(makeProduct(record.version));
    column->addWidget(makeMaker());
    column->addWidget(new BundledToolsPanel(model, this));
    column->addWidget(makeReference());
    column->addWidget(makeLicences());
    addCopyright(column, record.copyright);
    keepFitted(this, windowWidth);
    addCloseKeys(this);
}

void AboutView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Not when the desktop brings a minimised window back.
    if (event->spontaneous())
        return;
    if (std::holds_alternative<FFmpegChecking>(m_model.ffmpegStatus.value()))
        m_model.checkFFmpeg();
    m_model.checkCDParanoia();
}

QWidget *AboutView::makeProduct(const QString &version)
{
    auto *product = new QWidget(this);
    auto *name = centred(u"Tonearm"_s, product);
    QFont large;
    large.setPointSizeF(nameSize);
    large.setWeight(QFont::DemiBold);
    name->setFont(large);
    auto *versionLine = centred(u"Version "_s + version, product);
    versionLine->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    applyTextStyle(versionLine, TextStyle::secondary);

    auto *column = new QVBoxLayout(product);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(lineGap);
    column->addWidget(new AppIconView(product), 0, Qt::AlignHCenter);
    column->addWidget(name);
    column->addWidget(versionLine);
    column->addWidget(
        centred(u"Rip your music from CDs or Blu-ray Audio Discs with no loss in quality."_s, product));
    return product;
}

QWidget *AboutView::makeMaker()
{
    return makeLinks(facts::makerName.toString(), {{u"News and Updates"_s, facts::newsPage},
                                                   {u"Tonearm Product Page"_s, facts::productPage}});
}

QWidget *AboutView::makeReference()
{
    return makeLinks(u"Reference"_s, {{u"MusicBrainz API documentation"_s, facts::musicBrainzDocumentation},
                                      {u"Discogs API documentation"_s, facts::discogsDocumentation}});
}

QWidget *AboutView::makeLicences()
{
    auto *group = new GroupPanel(u"Licences"_s, this);
    auto *text = new QLabel(u"Tonearm bundles ffmpeg and cd-paranoia, which run as separate programs under "
                            "the LGPL and GPL. Their full licence text ships inside the app."_s,
                            group);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto *button = new QPushButton(u"Show Licences…"_s, group);
    connect(button, &QPushButton::clicked, this, &AboutView::licencesRequested);
    group->content()->addWidget(text);
    group->content()->addWidget(button, 0, Qt::AlignLeading);
    return group;
}

// Side by side, so that the window isn't higher than a small screen.
QWidget *AboutView::makeLinks(const QString &title, const QList<Link> &links)
{
    auto *group = new GroupPanel(title, this);
    auto *row = new QHBoxLayout;
    row->setSpacing(linkGap);
    group->content()->addLayout(row);
    for (const Link &link : links) {
        const QUrl page(link.page.toString());
        auto *button = new LinkButton(link.text, group);
        button->setToolTip(page.toString());
        connect(button, &LinkButton::clicked, this, [this, page] { m_openLink(page); });
        row->addWidget(button);
    }
    row->addStretch();
    return group;
}

void AboutView::addCopyright(QVBoxLayout *column, const QString &notice)
{
    if (notice.isEmpty())
        return;
    auto *label = centred(notice, this);
    applyTextStyle(label, TextStyle::smallSecondary);
    column->addWidget(label);
}

} // namespace tonearm
