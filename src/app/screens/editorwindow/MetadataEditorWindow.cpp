// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/MetadataEditorWindow.h"

#include "app/screens/editorwindow/EditorQuestions.h"
#include "app/screens/editorwindow/MetadataEditorView.h"
#include "app/screens/elements/AccessibleRole.h"
#include "app/screens/elements/CloseKeys.h"
#include "tageditor/MetadataEditorModel.h"

#include <QCloseEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace tonearm {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize defaultSize(1000, 780);
constexpr QSize smallestSize(900, 640);

} // namespace

MetadataEditorWindow::MetadataEditorWindow(MetadataEditorModel &model, const GenreCatalog &genres,
                                           ArtworkViewer &viewer)
    : m_model(model)
{
    setWindowTitle(u"Edit Metadata"_s);
    setAccessibleRole(this, QAccessible::Window);
    setMinimumSize(smallestSize);
    resize(defaultSize);
    auto *view = new MetadataEditorView(model, genres, viewer, this);
    connect(view, &MetadataEditorView::artworkViewingRequested, this,
            &MetadataEditorWindow::artworkViewingRequested);
    connect(view, &MetadataEditorView::cancelled, this, &QWidget::close);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(view);
    showQuestions(this, model);

    addCloseKeys(this);
    connect(new QShortcut(Qt::CTRL | Qt::Key_S, this), &QShortcut::activated, this,
            [&model] { model.save(); });
}

void MetadataEditorWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    // Not when it only comes back from where the desktop had put it.
    if (!event->spontaneous())
        m_model.checkTools();
}

void MetadataEditorWindow::closeEvent(QCloseEvent *event)
{
    event->setAccepted(m_model.requestClose());
}

} // namespace tonearm
