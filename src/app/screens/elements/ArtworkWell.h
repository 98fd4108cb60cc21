// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/screens/elements/FileDropArea.h"

#include <QImage>
#include <QMenu>
#include <QString>

#include <functional>
#include <variant>

namespace tonearm {

class Spinner;

/// What a well for artwork shows.
struct ArtworkWellContent
{
    struct Empty
    {
        QString caption;
        bool operator==(const Empty &) const = default;
    };

    struct Image
    {
        QImage picture;
        /// Whether another picture is on its way.
        bool isBeingReplaced = false;
        bool operator==(const Image &) const = default;
    };

    struct Conflicting
    {
        QString message;
        bool operator==(const Conflicting &) const = default;
    };

    struct Loading
    {
        /// For those who can't see that something turns.
        QString description = QStringLiteral("Fetching…");
        bool operator==(const Loading &) const = default;
    };

    std::variant<Empty, Image, Conflicting, Loading> value;

    bool operator==(const ArtworkWellContent &) const = default;
};

/// The column that a window keeps for its well, with room for lines under it.
struct ArtworkColumn
{
    static constexpr int wellSide = 104;
    static constexpr int width = 220;
    static constexpr int gap = 6;
};

/// A square well that shows a picture, takes one that is dropped on it, and has a menu: by a right click,
/// or by keyboard with the menu key, Return or Space.
class ArtworkWell : public FileDropArea
{
    Q_OBJECT

public:
    /// Fills the menu, anew each time that it opens.
    using FillMenu = std::function<void(QMenu &)>;

    ArtworkWell(int side, OnDrop onDrop, FillMenu fillMenu, QWidget *parent = nullptr);

    void setContent(const ArtworkWellContent &content);

protected:
    void paintEvent(QPaintEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void popUpMenu(const QPoint &place);
    void paintPicture(QPainter &painter, const ArtworkWellContent::Image &image);
    bool isWaiting() const;
    void paintNote(QPainter &painter, const QString &text, bool isWarning) const;
    QString contentDescription() const;

    FillMenu m_fillMenu;
    ArtworkWellContent m_content;
    // The picture in the size in which it was last painted.
    QImage m_painted;
    Spinner *m_spinner;
};

} // namespace tonearm
