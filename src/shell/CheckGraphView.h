#pragma once

// One graph of the Check page: the big graph picGraph or one small graph of picSectionGraphs. It
// shows the picture the page drew for it and says when it was clicked or took a new size, so
// that the page can draw again at that size.

#include <QImage>
#include <QWidget>

namespace corvane {

class CheckGraphView : public QWidget {
    Q_OBJECT

public:
    explicit CheckGraphView(QWidget* parent = nullptr);

    void SetPicture(QImage picture);
    const QImage& Picture() const { return picture_; }

signals:
    void Clicked();
    void Resized();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage picture_;
};

} // namespace corvane
