#pragma once

namespace velvox {

/// Window identifiers of the main window's controls.
enum class ControlId : int {
    linkin = 101,
    UniXPButton1,
    ds,
    vd,
    outer,
    isButton1,
    isButton2,
    topendskin,
    Label1,
    Label2,
    Label3,
    Label4,
    Label5,
    Label6,
    Label7,
    Label11,
    Label12,
    Label13,
    Picture1,
    output,
    web,
};

}  // namespace velvox
