// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QImage>
#include <QRect>
#include <QSize>
#include <QWidget>

#include <optional>

class QLabel;
class QStackedWidget;

namespace tonearm {

/// What a viewer shows.
struct ViewedArtwork
{
    QImage picture;
    /// In pixels; where it isn't known, the viewer decides.
    std::optional<QSize> size = {};
    /// The line below the picture.
    QString summary = {};

    bool operator==(const ViewedArtwork &) const = default;
};

/// What a viewer says while there is nothing to see.
struct ArtworkPlaceholder
{
    QString title;
    QString text;
};

/// The size in which a picture is to be seen whose file tells these measures, and may
/// hold it on its side; nothing where they aren't known.
std::optional<QSize> uprightSize(const QImage &picture, qint64 pixelWidth, qint64 pixelHeight);

/// Where a viewer's window goes to fit a picture: its top edge stays, and no part of it leaves the screen.
/// `frame` is the window as it is, `margins` how much of that is the desktop's frame, `screen` what the
/// screen has free, if known.
QRect fittedFrame(const QSize &picture, const QRect &frame, const QSize &margins,
                  const std::optional<QRect> &screen);

/// A window that shows a picture in its own size, and fits itself to each.
class ArtworkWindow : public QWidget
{
    Q_OBJECT

public:
    ArtworkWindow(const QString &title, const ArtworkPlaceholder &placeholder);

    void setArtwork(const std::optional<ViewedArtwork> &artwork);

protected:
    void showEvent(QShowEvent *event) override;

private:
    QWidget *makePictureView();
    void fit();

    QStackedWidget *m_places;
    class PictureView;
    PictureView *m_picture = nullptr;
    QLabel *m_summary = nullptr;
    std::optional<QSize> m_size;
};

} // namespace tonearm
