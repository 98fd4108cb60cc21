// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/editorwindow/TagField.h"

#include "app/screens/editorwindow/OverwriteWarning.h"
#include "app/screens/elements/Bind.h"
#include "tageditor/MetadataEditorModel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScopedValueRollback>

#include <algorithm>
#include <limits>

namespace tonearm {

namespace {

constexpr int gap = 6;
constexpr int leastLabelWidth = 96;
constexpr int leastBoxWidth = 110;

// The same for all fields, so that their boxes stand below each other; more than usual only where the font
// needs it.
int labelWidth(const QFontMetrics &metrics)
{
    int width = leastLabelWidth;
    for (const EditableTagField field : allEditableTagFields)
        width = std::max(width, metrics.horizontalAdvance(label(field)));
    return width;
}

} // namespace

TagField::TagField(MetadataEditorModel &model, EditableTagField field, std::optional<int> width,
                   QWidget *parent)
    : QWidget(parent)
    , m_model(model)
    , m_field(field)
    , m_row(new QHBoxLayout(this))
    , m_box(nullptr)
    , m_warning(nullptr)
{
    auto *name = new QLabel(label(field), this);
    name->setFixedWidth(labelWidth(name->fontMetrics()));
    name->setAlignment(Qt::AlignTrailing | Qt::AlignVCenter);
    m_box = new QLineEdit(this);
    m_box->setAccessibleName(label(field));
    // A tag is never cut to what the box would hold by itself.
    m_box->setMaxLength(std::numeric_limits<int>::max());
    name->setBuddy(m_box);
    m_warning = new OverwriteWarning(field, this);
    m_row->addWidget(name);
    layOut(width);
    connectBox();
}

void TagField::layOut(std::optional<int> width)
{
    m_row->setContentsMargins(0, 0, 0, 0);
    m_row->setSpacing(gap);
    m_row->addWidget(m_box, width ? 0 : 1);
    m_row->addWidget(m_warning);
    if (width) {
        m_box->setFixedWidth(*width);
        m_row->addStretch(1);
    } else {
        m_box->setMinimumWidth(leastBoxWidth);
    }
}

void TagField::connectBox()
{
    bind(
        m_box, [this] { return m_model.commonValue(m_field); },
        [this](QLineEdit *box, const CommonValue &common) {
            // What the user is typing is there already; setting it again would move the cursor, break off
            // an input method and forget what can be undone.
            if (box->text() != common.text) {
                const QScopedValueRollback showing(m_isShowing, true);
                box->setText(common.text);
                if (!box->hasFocus())
                    box->setCursorPosition(0);
            }
            box->setPlaceholderText(placeholderOf(m_field, common));
        });
    // Not textEdited: an assistive tool that fills the box in doesn't type.
    connect(m_box, &QLineEdit::textChanged, this, [this](const QString &text) {
        if (!m_isShowing)
            m_model.setValue(text, m_field);
    });
}

void TagField::addBehindBox(QWidget *widget)
{
    m_row->insertWidget(m_row->indexOf(m_box) + 1, widget);
}

void TagField::setOverwritten(bool isOverwritten)
{
    m_warning->setVisible(isOverwritten);
}

} // namespace tonearm
