// The window of the help pages.
#include "ui/help_window.h"

#include "core/desktop.h"
#include "pages/page_files.h"
#include "platform/arrangement.h"
#include "reference/reference_page.h"
#include "text/text.h"
#include "ui/forms.h"

namespace brindlemoor {

HelpForm::HelpForm() : Form("HelpForm") {
  HelpWB.Spoken = "Help";
  Caption = "Brindlemoor Help";
  Width = 760;
  Height = 620;
  Close.Caption = "Close";
  Close.Cancel = true;
  Close.Click = [this] { Desktop().HideForm(*this); };
  Arrangement = Column({Cell(HelpWB, 1), Row({Layout{.Stretch = 1}, Cell(Close)})});
}

void ShowHelp(std::string_view file, std::string_view anchor) {
  const std::string problem = WriteReferencePage();
  if (!problem.empty()) {
    Desktop().MessageBox(Joined("Can't write ", kReferenceFile, ": ", problem));
  }
  HelpForm& form = TheHelpForm();
  Desktop().ShowForm(form, false);
  ShowInView(form.HelpWB, file, anchor);
  Desktop().RaiseForm(form);
}

}  // namespace brindlemoor
