// SPDX-License-Identifier: MIT
#include "cardtable/cardtable.h"
#include "host/bitmap.h"
#include "host/window.h"
#include "kit/table.h"
#include "orvane/orvane.h"
#include "orvane/png_file.h"

int main()
{
    orvane::Host host({.width = 64, .height = 48});
    SetCameraFOV(40.0, 30.0);
    CCardTable table;
    table.Init(2, 4, 13, 13);
    CDialog dialog;
    dialog.Show();
    table.Handler();
    host.Compose();
    cardkit::Table kitTable(64, 48, 1, {});
    kitTable.Frame();
    return table.GetPocket(1) != nullptr && host.Screen().Width() == 64 ? 0 : 1;
}
