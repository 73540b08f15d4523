#include "export_table.h"

namespace tvlcli {

const ExportEntry kExports[] = {
#include "export_table.inc"
};

const int kExportCount = sizeof kExports / sizeof kExports[0];

}  // namespace tvlcli
