#include "shell/frmLibProject.h"

#include "library/clsProjectLibrary.h"
#include "model/Globals.h"
#include "support/Services.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalBlocker>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace corvane {
namespace {

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

// Restores the normal pointer however the load ends.
class WaitCursor {
public:
    WaitCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~WaitCursor() { QApplication::restoreOverrideCursor(); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};

QPushButton* Button(const char* caption, const char* name, QWidget* parent) {
    auto* button = new QPushButton(QString::fromLatin1(caption), parent);
    button->setObjectName(QString::fromLatin1(name));
    // Return in the search box searches; it must not open or move anything.
    button->setAutoDefault(false);
    button->setDefault(false);
    return button;
}

} // namespace

frmLibProject::frmLibProject(QWidget* parent)
    : QDialog(parent,
              Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowMaximizeButtonHint),
      library_(std::make_unique<clsProjectLibrary>()), dtbLibProject_(new QTableWidget(this)),
      txtSearchProject_(new QLineEdit(this)), cmdSearch_(Button("Search", "cmdSearch", this)),
      cmdOpenFile_(Button("Open", "cmdOpenFile", this)), cmdArchive_(Button("Archive", "cmdArchive", this)),
      cmdCancel_(Button("Cancel", "cmdCancel", this)), lblSearch_(new QLabel(QStringLiteral("Search"), this)),
      lblFoundItems_(new QLabel(this)), lblProgress_(new QLabel(this)), prgLoading_(new QProgressBar(this)) {
    setObjectName(QStringLiteral("frmLibProject"));
    setModal(true);
    setWindowTitle(Text(library_->Caption()));

    const auto& captions = clsProjectLibrary::ColumnCaptions();
    dtbLibProject_->setObjectName(QStringLiteral("dtbLibProject"));
    dtbLibProject_->setColumnCount(kLibraryColumnCount);
    QStringList labels;
    for (const auto& caption : captions)
        labels << Text(caption);
    dtbLibProject_->setHorizontalHeaderLabels(labels);
    dtbLibProject_->setColumnHidden(kColumnFilePath, true);
    dtbLibProject_->setColumnHidden(kColumnDiameter, true);
    dtbLibProject_->setSelectionBehavior(QAbstractItemView::SelectRows);
    dtbLibProject_->setSelectionMode(QAbstractItemView::SingleSelection);
    dtbLibProject_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    dtbLibProject_->setSortingEnabled(false); // the list sorts by value, not by the cell text
    dtbLibProject_->verticalHeader()->setVisible(false);
    auto* header = dtbLibProject_->horizontalHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSectionResizeMode(kColumnAll, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(kColumnPropeller, QHeaderView::Stretch);
    dtbLibProject_->setColumnWidth(kColumnProjectID, 160);
    dtbLibProject_->setColumnWidth(kColumnCustomer, 160);
    dtbLibProject_->setColumnWidth(kColumnDateSaved, 130);
    connect(header, &QHeaderView::sectionClicked, this,
            [this](int column) { dtbLibProject_HeaderClick(column); });
    connect(dtbLibProject_, &QTableWidget::itemChanged, this,
            [this](QTableWidgetItem* item) { dtbLibProject_ItemChanged(item); });
    connect(dtbLibProject_, &QTableWidget::cellDoubleClicked, this,
            [this](int row, int) { OpenPath(PathOfRow(row)); });

    txtSearchProject_->setObjectName(QStringLiteral("txtSearchProject"));
    txtSearchProject_->setPlaceholderText(QStringLiteral("Search Directory"));
    txtSearchProject_->setClearButtonEnabled(true);
    connect(txtSearchProject_, &QLineEdit::textChanged, this, [this] { txtSearchProject_Change(); });
    connect(txtSearchProject_, &QLineEdit::returnPressed, this, [this] { cmdSearch_Click(); });
    lblSearch_->setObjectName(QStringLiteral("lblSearch"));
    lblSearch_->setBuddy(txtSearchProject_);
    lblFoundItems_->setObjectName(QStringLiteral("lblFoundItems"));
    lblProgress_->setObjectName(QStringLiteral("lblProgress"));
    prgLoading_->setObjectName(QStringLiteral("prgLoading"));
    prgLoading_->setRange(0, 100);
    prgLoading_->setValue(0);

    connect(cmdSearch_, &QPushButton::clicked, this, [this] { cmdSearch_Click(); });
    connect(cmdOpenFile_, &QPushButton::clicked, this, [this] { cmdOpenFile_Click(); });
    connect(cmdArchive_, &QPushButton::clicked, this, [this] { cmdArchive_Click(); });
    connect(cmdCancel_, &QPushButton::clicked, this, &QDialog::reject);

    auto* searchRow = new QHBoxLayout();
    searchRow->addWidget(lblSearch_);
    searchRow->addWidget(txtSearchProject_, 1);
    searchRow->addWidget(cmdSearch_);
    auto* statusRow = new QHBoxLayout();
    statusRow->addWidget(prgLoading_, 1);
    statusRow->addWidget(lblProgress_);
    statusRow->addSpacing(16);
    statusRow->addWidget(lblFoundItems_);
    auto* buttonRow = new QHBoxLayout();
    buttonRow->addStretch();
    buttonRow->addWidget(cmdOpenFile_);
    buttonRow->addWidget(cmdArchive_);
    buttonRow->addWidget(cmdCancel_);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(searchRow);
    layout->addWidget(dtbLibProject_, 1);
    layout->addLayout(statusRow);
    layout->addLayout(buttonRow);
    resize(820, 520);
}

frmLibProject::~frmLibProject() = default;

bool frmLibProject::ArchiveMode() const {
    return library_->ArchiveMode();
}

void frmLibProject::SetArchiveMode(bool archive) {
    library_->SetArchiveMode(archive);
    setWindowTitle(Text(library_->Caption()));
    cmdArchive_->setText(archive ? QStringLiteral("Restore") : QStringLiteral("Archive"));
}

void frmLibProject::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (activated_)
        return;
    activated_ = true;
    // After the window has painted, so that the progress bar is seen on a slow drive.
    QTimer::singleShot(0, this, [this] {
        if (!LoadLibrary())
            reject();
    });
}

bool frmLibProject::LoadLibrary() {
    if (!library_->CheckFolderWritable())
        return false;
    WaitCursor wait;
    ticked_.clear();
    lblProgress_->clear();
    lblFoundItems_->clear();
    prgLoading_->setValue(0);
    // The load lets events run: nothing may sort, open or move a list that is still filling.
    const QList<QWidget*> busy = {dtbLibProject_, txtSearchProject_, cmdSearch_, cmdOpenFile_, cmdArchive_};
    for (QWidget* widget : busy)
        widget->setEnabled(false);
    library_->Load([this](int percent) { prgLoading_->setValue(percent); });
    for (QWidget* widget : busy)
        widget->setEnabled(true);
    dtbLibProject_->horizontalHeader()->setSortIndicator(
        library_->SortColumn(), library_->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    FillRows();
    lblProgress_->setText(QStringLiteral("Load Complete"));
    ShowFound(static_cast<int>(library_->Rows().size()));
    return true;
}

void frmLibProject::FillRows() {
    const QSignalBlocker block(dtbLibProject_);
    const auto& rows = library_->Rows();
    dtbLibProject_->clearContents();
    dtbLibProject_->setRowCount(static_cast<int>(rows.size()));
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const LibraryRow& row = rows[static_cast<std::size_t>(r)];
        auto* tick = new QTableWidgetItem();
        tick->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
        tick->setCheckState(ticked_.count(row.filePath) != 0 ? Qt::Checked : Qt::Unchecked);
        dtbLibProject_->setItem(r, kColumnAll, tick);
        for (int column = kColumnProjectID; column < kLibraryColumnCount; ++column) {
            auto* cell = new QTableWidgetItem(Text(row.Cell(column)));
            cell->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
            dtbLibProject_->setItem(r, column, cell);
        }
    }
}

void frmLibProject::ShowFound(int count) {
    lblFoundItems_->setText(QStringLiteral("Items Found: ") + QString::number(count));
}

std::string frmLibProject::PathOfRow(int row) const {
    const QTableWidgetItem* item = row >= 0 ? dtbLibProject_->item(row, kColumnFilePath) : nullptr;
    return item != nullptr ? item->text().toStdString() : std::string();
}

std::vector<std::string> frmLibProject::TickedPaths() const {
    std::vector<std::string> paths;
    for (const LibraryRow& row : library_->Rows()) {
        if (ticked_.count(row.filePath) != 0)
            paths.push_back(row.filePath);
    }
    return paths;
}

void frmLibProject::dtbLibProject_HeaderClick(int column) {
    if (column == kColumnAll) {
        TickAll();
        return;
    }
    library_->ToggleSort(column);
    dtbLibProject_->horizontalHeader()->setSortIndicator(
        library_->SortColumn(), library_->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    FillRows();
}

// A click on the head of the tick column ticks every row shown, or clears the ticks when some
// are set.
void frmLibProject::TickAll() {
    const auto& rows = library_->Rows();
    const bool anyTicked = std::any_of(
        rows.begin(), rows.end(), [this](const LibraryRow& row) { return ticked_.count(row.filePath) != 0; });
    for (const LibraryRow& row : rows) {
        if (anyTicked)
            ticked_.erase(row.filePath);
        else if (library_->CanTick(row.filePath))
            ticked_.insert(row.filePath);
    }
    FillRows();
}

void frmLibProject::dtbLibProject_ItemChanged(QTableWidgetItem* item) {
    if (item == nullptr || item->column() != kColumnAll)
        return;
    const std::string path = PathOfRow(item->row());
    if (item->checkState() != Qt::Checked) {
        ticked_.erase(path);
        return;
    }
    if (library_->CanTick(path)) {
        ticked_.insert(path);
        return;
    }
    const QSignalBlocker block(dtbLibProject_);
    item->setCheckState(Qt::Unchecked);
}

void frmLibProject::cmdSearch_Click() {
    const std::string text = txtSearchProject_->text().toStdString();
    if (text.empty())
        return;
    const int found = library_->Search(text);
    if (found > 0)
        FillRows();
    lblProgress_->setText(QStringLiteral("Search Complete"));
    ShowFound(found);
}

void frmLibProject::txtSearchProject_Change() {
    if (!txtSearchProject_->text().isEmpty() || !library_->Searching())
        return;
    library_->ClearSearch();
    FillRows();
    ShowFound(static_cast<int>(library_->Rows().size()));
}

void frmLibProject::cmdOpenFile_Click() {
    // The marked row is the selected one; the focus frame alone marks nothing.
    const QModelIndexList marked = dtbLibProject_->selectionModel()->selectedRows();
    OpenPath(marked.isEmpty() ? std::string() : PathOfRow(marked.front().row()));
}

void frmLibProject::OpenPath(const std::string& path) {
    if (path.empty())
        return;
    // Held, so that a new project cannot take the old one's address unnoticed.
    const auto projectBefore = gProject;
    if (library_->Open(path) == 1) {
        projectOpened_ = true;
        emit projectOpened();
        accept();
        return;
    }
    if (gProject != projectBefore)
        emit newProjectStarted();
}

void frmLibProject::cmdArchive_Click() {
    const auto result = library_->MoveFiles(TickedPaths());
    if (!result.ran)
        return;
    std::erase_if(ticked_, [this](const std::string& path) { return library_->FindRow(path) == nullptr; });
    dtbLibProject_->horizontalHeader()->setSortIndicator(
        library_->SortColumn(), library_->SortAscending() ? Qt::AscendingOrder : Qt::DescendingOrder);
    FillRows();
    ShowFound(static_cast<int>(library_->Rows().size()));
}

} // namespace corvane
