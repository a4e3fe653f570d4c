#pragma once

#define IDI_VELVOX 1
