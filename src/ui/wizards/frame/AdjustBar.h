#pragma once

#include "base/Event.h"
#include "platform/IUserPrompts.h"
#include "ui/common/BusyState.h"
#include "ui/wizards/frame/IWizardFrameView.h"

#include <QPointF>
#include <QScrollBar>

#include <optional>

namespace tarvex {

/// The bar that edits the selected element. Up and Page Up raise its position, and it beeps at its ends. While
/// transfers run the input gate takes its mouse moves away, so it looks where the mouse is when they have ended.
class AdjustBar : public QScrollBar {
public:
    AdjustBar(IUserPrompts& prompts, BusyState& busy, QWidget* parent);

    BarState State() const;
    /// Takes range, steps and position over without a word to anyone.
    void State(const BarState& state);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void FollowMouse();

    IUserPrompts& prompts_;
    BusyState& busy_;
    QPointF seenAt_;                    ///< where the bar last heard of the mouse
    std::optional<QPointF> releasedAt_; ///< where the handle was let go while transfers ran
    Subscription busyChanged_;
};

}
