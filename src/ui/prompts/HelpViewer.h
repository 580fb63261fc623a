#pragma once

#include <QDialog>
#include <QTemporaryDir>
#include <QUrl>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

class QHelpEngine;
class QLineEdit;
class QListWidget;
class QTabWidget;
class QTextBrowser;

namespace tarvex {

/// The window of the help file: contents and search at the left, the page at the right. Escape closes it.
/// The file is registered in a collection of its own in a temporary folder, so that nothing is written beside it.
class HelpViewer : public QDialog {
public:
    HelpViewer();
    ~HelpViewer() override;

    /// Opens the compiled help file; false when it is missing or is no help file.
    bool Open(const std::string& path);
    /// Shows the page of a topic; the contents page without one, or when the topic is unknown.
    void GoTo(std::optional<std::int32_t> topic);
    /// Address of the page that is shown.
    QUrl CurrentPage() const;

private:
    void BuildWindow();
    QWidget* MakeNavigation();
    QWidget* MakeSearch();
    QLayout* MakeButtons();
    void ShowPage(const QUrl& url);
    void Search();
    QUrl ContentsPage() const;
    QList<QUrl> Pages() const;
    static QString CollectionFolder();

    QTemporaryDir collectionFolder_{CollectionFolder()};
    std::unique_ptr<QHelpEngine> engine_;
    QTextBrowser* page_ = nullptr;
    QTabWidget* navigation_ = nullptr;
    QLineEdit* words_ = nullptr;
    QListWidget* hits_ = nullptr;
};

}
