// The tool bar and the status bar inside the client area: rows of widgets that share the width of
// the window. The form view fills them.
#pragma once

#include <QLabel>
#include <QToolButton>
#include <QWidget>
#include <vector>

namespace cumeron {

// Buttons from left to right; they get narrower before one of them leaves a narrow window.
class ToolStrip : public QWidget {
public:
    explicit ToolStrip(QWidget* parent) : QWidget(parent) {}
    void Add(QToolButton* button, bool separatorBefore);
    void Arrange();

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }
    void paintEvent(QPaintEvent*) override;

private:
    struct Place {
        QToolButton* button;
        bool separatorBefore;
    };
    std::vector<Place> places;
    std::vector<int> separators;  // their x
};

// A panel: a text that is cut with an ellipsis where the room ends, or a picture.
class StatusPanel : public QLabel {
public:
    explicit StatusPanel(QWidget* parent);
    // fixed: keeps its width whatever the window's.
    void SetWidth(int pixels, bool fixed);
    void SetContents(const QString& text, const QIcon& icon);

    int WantedWidth() const { return wantedWidth; }
    // What the text takes, at most the wanted width.
    int NeededWidth() const;
    bool HasFixedWidth() const { return fixedWidth; }
    QString FullText() const { return fullText; }

protected:
    void resizeEvent(QResizeEvent*) override { ShowContents(); }

private:
    void ShowContents();

    QString fullText;
    QIcon picture;
    int wantedWidth = 0;
    bool fixedWidth = false;
};

class StatusStrip : public QWidget {
public:
    explicit StatusStrip(QWidget* parent) : QWidget(parent) {}
    void Add(StatusPanel* panel) { panels.push_back(panel); }
    // The pictures keep their width, the texts share what is left in the proportion of theirs; in a
    // window too narrow for that, each text gets what it needs first.
    void Arrange();

protected:
    void resizeEvent(QResizeEvent*) override { Arrange(); }

private:
    // The width of each panel, 0 for a hidden one.
    std::vector<int> Widths() const;

    std::vector<StatusPanel*> panels;
};

}  // namespace cumeron
