#include "cylinder/settings_memo.h"

void SettingsMemo::open() {
    open_ = true;
    // Generation 0 marks a slot never filled; after a wrap-around every slot is cleared instead.
    if (++generation_ == 0) {
        floats_.generation.fill(0);
        ints_.generation.fill(0);
        bools_.generation.fill(0);
        generation_ = 1;
    }
}
