#pragma once

#define IDI_VELVOX 1

// Pictures of the title bar: the number of the piece, plus the resolution they are drawn for.
#define IDB_TITLE_CORNER 1000
#define IDB_TITLE_BAR 2000
#define IDB_TITLE_END 3000
