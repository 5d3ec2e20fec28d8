#include "support/Notice.h"

#include "support/Services.h"

namespace corvane {

void ShowNotices(const std::vector<Notice>& notices) {
    for (const Notice& notice : notices) {
        Prompts().MessageBox(notice.text, notice.style, notice.title);
    }
}

} // namespace corvane
