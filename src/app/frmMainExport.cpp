#include "frmMain.h"

namespace morvane {

void frmMain::mnuFileExport_Click() {}

void frmMain::mnuFileExportAll_Click() {}

} // namespace morvane
