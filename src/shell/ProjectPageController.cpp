#include "shell/ProjectPageController.h"

#include "model/Globals.h"
#include "shell/PageNavigator.h"
#include "shell/frmCorvane.h"
#include "shell/frmPageProject.h"

namespace corvane {

ProjectPageController::ProjectPageController(frmCorvane& window)
    : window_(window), page_(new frmPageProject()) {
    QObject::connect(page_, &frmPageProject::newRequested, page_, [&window] { window.mnuFileNew_Click(); });
    QObject::connect(page_, &frmPageProject::openRequested, page_, [&window] { window.mnuFileOpen_Click(); });
    QObject::connect(page_, &frmPageProject::saveRequested, page_, [&window] { window.mnuFileSave_Click(); });
    QObject::connect(page_, &frmPageProject::archiveRequested, page_,
                     [&window] { window.mnuFileViewArchive_Click(); });
    QObject::connect(page_, &frmPageProject::bladeCountChanged, page_, [&window] {
        if (window.ActivePage() == frmCorvane::PageProject) {
            window.SetBladeButtonState(0);
        }
    });
    QObject::connect(page_, &frmPageProject::titleChanged, page_,
                     [&window] { window.UpdateTitlebarCaption(); });
    QObject::connect(page_, &frmPageProject::projectChanged, page_,
                     [&window] { window.Navigator().NotifyStateChanged(); });
}

QWidget* ProjectPageController::Widget() const {
    return page_;
}

void ProjectPageController::Enter() {
    GraphsStale = true;
    CompareScanIndex = -1;
    gCheckPageMode = 0;
    Refresh();
    window_.SetBladeViewMode(1);
    window_.ctlAll_UpdateDisplay();
    window_.SetBladeButtonState(0);
}

int ProjectPageController::RefreshProjectFormData() {
    return page_->RefreshProjectFormData();
}

int ProjectPageController::CheckProjectData(bool clearOnly) {
    return page_->CheckProjectData(clearOnly);
}

void ProjectPageController::MarkSaveAsFields(bool diameterMissing, bool customerMissing) {
    page_->MarkSaveAsFields(diameterMissing, customerMissing);
}

ProjectFieldCheck ProjectPageController::Marks() const {
    return page_->Marks();
}

} // namespace corvane
