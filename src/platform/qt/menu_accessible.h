// The menus as a screen reader is told of them: Qt's own way to tell leaves out what an item's tip says.
#pragma once

namespace gridwright {

/// From now on every menu that shows tips has them as its items' descriptions. Called more than once it does
/// nothing more.
void describeMenuItems();

}  // namespace gridwright
