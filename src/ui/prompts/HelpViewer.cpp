#include "ui/prompts/HelpViewer.h"

#include "ui/common/Guarded.h"
#include "ui/common/WindowTools.h"

#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QHelpContentWidget>
#include <QHelpEngine>
#include <QHelpIndexModel>
#include <QHelpLink>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QThread>
#include <QVBoxLayout>

#include <algorithm>

namespace tarvex {

namespace {

/// A browser that finds pages and pictures inside the help file. Links out of it lead nowhere.
class HelpPage : public QTextBrowser {
public:
    HelpPage(const QHelpEngine& engine, QWidget* parent) : QTextBrowser(parent), engine_(engine) {}

    QVariant loadResource(int type, const QUrl& name) override
    {
        const QUrl url = name.isRelative() ? source().resolved(name) : name;
        return url.scheme() == QStringLiteral("qthelp") ? QVariant(engine_.fileData(url))
                                                        : QTextBrowser::loadResource(type, name);
    }

private:
    const QHelpEngine& engine_;
};

}

HelpViewer::HelpViewer()
{
    setObjectName(QStringLiteral("HelpViewer"));
    setWindowTitle(QStringLiteral("Tarvex Help"));
    setWindowFlags(Qt::Window);
}

HelpViewer::~HelpViewer()
{
    delete page_; // these two ask the engine
    delete navigation_;
    // The engine collects contents and index on threads of its own, which read what its destructor frees before that
    // waits for them. It takes some milliseconds, and only when the window goes just after it was opened.
    while (engine_ && (engine_->contentModel()->isCreatingContents() || engine_->indexModel()->isCreatingIndex()))
        QThread::msleep(1);
}

/// The engine has each of its writes brought to disk, for which the window would wait while the disk is busy. The
/// user's runtime folder, where there is one, lies in memory.
QString HelpViewer::CollectionFolder()
{
    const QFileInfo runtime(qEnvironmentVariable("XDG_RUNTIME_DIR"));
    const bool isUsable = runtime.isAbsolute() && runtime.isDir() && runtime.isWritable();
    return (isUsable ? runtime.filePath() : QDir::tempPath()) + QStringLiteral("/tarvex-help-XXXXXX");
}

bool HelpViewer::Open(const std::string& path)
{
    if (!collectionFolder_.isValid())
        return false;
    engine_ = std::make_unique<QHelpEngine>(collectionFolder_.filePath(QStringLiteral("help.qhc")));
    engine_->setReadOnly(false);
    if (!engine_->setupData() || !engine_->registerDocumentation(ToQt(path)))
        return false;
    BuildWindow();
    return true;
}

void HelpViewer::GoTo(std::optional<std::int32_t> topic)
{
    const auto links = topic ? engine_->documentsForIdentifier(QString::number(*topic)) : QList<QHelpLink>();
    page_->setSource(links.isEmpty() ? ContentsPage() : links.first().url);
}

QUrl HelpViewer::CurrentPage() const { return page_->source(); }

QUrl HelpViewer::ContentsPage() const
{
    const auto links = engine_->documentsForIdentifier(QStringLiteral("contents"));
    return links.isEmpty() ? Pages().value(0) : links.first().url;
}

QList<QUrl> HelpViewer::Pages() const
{
    return engine_->files(engine_->registeredDocumentations().value(0), QString(), QStringLiteral("html"));
}

void HelpViewer::BuildWindow()
{
    page_ = new HelpPage(*engine_, this);
    page_->setOpenLinks(false);
    NameControl(*page_, "HelpPage", QStringLiteral("Help page"));
    QObject::connect(page_, &QTextBrowser::anchorClicked, this,
                     [this](const QUrl& url) { Guarded([&] { ShowPage(url); }); });

    auto* splitter = new QSplitter(this);
    splitter->addWidget(MakeNavigation());
    splitter->addWidget(page_);
    splitter->setStretchFactor(1, 1);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(MakeButtons());
    layout->addWidget(splitter);

    const int letter = fontMetrics().averageCharWidth();
    const QSize available = screen()->availableSize() * 9 / 10;
    resize(QSize(letter * 110, fontMetrics().lineSpacing() * 34).boundedTo(available));
    splitter->setSizes({width() / 3, width() * 2 / 3});
    page_->setFocus();
}

QWidget* HelpViewer::MakeNavigation()
{
    auto* contents = engine_->contentWidget();
    NameControl(*contents, "HelpContentsTree", QStringLiteral("Contents"));
    const auto showItem = [this](const QModelIndex& index) {
        Guarded([&] {
            if (const auto* item = engine_->contentModel()->contentItemAt(index))
                ShowPage(item->url());
        });
    };
    QObject::connect(contents, &QTreeView::clicked, this, showItem);
    QObject::connect(contents, &QTreeView::activated, this, showItem);
    QObject::connect(engine_->contentModel(), &QHelpContentModel::contentsCreated, contents, &QTreeView::expandAll);

    navigation_ = new QTabWidget(this);
    NameControl(*navigation_, "HelpNavigation", QStringLiteral("Contents and search"));
    navigation_->addTab(contents, QStringLiteral("&Contents"));
    navigation_->addTab(MakeSearch(), QStringLiteral("&Search"));
    return navigation_;
}

QWidget* HelpViewer::MakeSearch()
{
    auto* panel = new QWidget(navigation_);
    words_ = new QLineEdit(panel);
    words_->setPlaceholderText(QStringLiteral("Words to find"));
    NameControl(*words_, "HelpSearchWords", words_->placeholderText());
    hits_ = new QListWidget(panel);
    NameControl(*hits_, "HelpSearchHits", QStringLiteral("Pages found"));
    auto* layout = new QVBoxLayout(panel);
    layout->addWidget(words_);
    layout->addWidget(hits_);

    const auto showHit = [this](const QListWidgetItem* hit) {
        Guarded([&] { ShowPage(hit->data(Qt::UserRole).toUrl()); });
    };
    QObject::connect(words_, &QLineEdit::returnPressed, this, [this] { Guarded([this] { Search(); }); });
    QObject::connect(hits_, &QListWidget::itemClicked, this, showHit);
    QObject::connect(hits_, &QListWidget::itemActivated, this, showHit);
    return panel;
}

QLayout* HelpViewer::MakeButtons()
{
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& caption, auto clicked) {
        auto* button = new QPushButton(caption, this);
        button->setAutoDefault(false); // Return belongs to the search field
        NameControl(*button, name, QString(caption).remove(u'&'));
        QObject::connect(button, &QPushButton::clicked, this, [clicked] { Guarded(clicked); });
        row->addWidget(button);
        return button;
    };
    auto* back = add("HelpBack", QStringLiteral("&Back"), [this] { page_->backward(); });
    auto* forward = add("HelpForward", QStringLiteral("&Forward"), [this] { page_->forward(); });
    back->setEnabled(false);
    forward->setEnabled(false);
    QObject::connect(page_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    QObject::connect(page_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    row->addStretch();
    add("HelpClose", QStringLiteral("Close"), [this] { reject(); });
    return row;
}

void HelpViewer::ShowPage(const QUrl& url)
{
    const QUrl page = page_->source().resolved(url);
    if (page.scheme() == QStringLiteral("qthelp") && page != page_->source())
        page_->setSource(page);
}

/// The few pages are read through at once: the search engine of Qt Help works on threads that it may end too late.
void HelpViewer::Search()
{
    const QStringList words = words_->text().split(u' ', Qt::SkipEmptyParts);
    hits_->clear();
    for (const QUrl& url : Pages()) {
        QTextDocument page;
        page.setHtml(QString::fromUtf8(engine_->fileData(url)));
        const QString text = page.toPlainText();
        const auto isOnPage = [&text](const QString& word) { return text.contains(word, Qt::CaseInsensitive); };
        if (words.isEmpty() || !std::all_of(words.begin(), words.end(), isOnPage))
            continue;
        auto* hit = new QListWidgetItem(page.metaInformation(QTextDocument::DocumentTitle), hits_);
        hit->setData(Qt::UserRole, url);
    }
    if (hits_->count() == 0)
        (new QListWidgetItem(QStringLiteral("No page found"), hits_))->setFlags(Qt::NoItemFlags);
}

}
