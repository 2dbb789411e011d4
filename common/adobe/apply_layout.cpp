// "Apply": snapshot, order, layout, write — all as one undo step of the host.
#include "common/adobe/AssistantDlg.h"

#include "common/adobe/on_exit.h"
#include "math/random.h"
#include "shell/global_suites.h"

#include <cstdint>
#include <ctime>

A_Err AssistantDlg::apply_assistant() {
    math::SetRand(static_cast<std::int32_t>(std::time(nullptr)));
    A_Err err = save_selection();
    if (err != A_Err_NONE) {
        return err;
    }
    AEGP_SuiteHandler suites(sSPBasic);
    AEGP_UtilitySuite3* utility = suites.UtilitySuite3();
    err = utility->AEGP_StartUndoGroup(get_name().c_str());
    if (err != A_Err_NONE) {
        return err;
    }
    // Closed on every way out, errors and thrown suite failures included, so one press is
    // always exactly one balanced undo step.
    OnExit close_group([utility] { utility->AEGP_EndUndoGroup(); });

    if (collection == nullptr) {
        return A_Err_NONE;
    }
    A_u_long item_count = 0;
    err = suites.CollectionSuite1()->AEGP_GetCollectionNumItems(collection, &item_count);
    if (err != A_Err_NONE || item_count == 0) {
        return err;
    }
    err = build_layer_list(suites, item_count);
    if (err != A_Err_NONE) {
        return err;
    }
    order_layers();
    err = get_layers_pos();
    if (err != A_Err_NONE) {
        return err;
    }
    return apply_to_layers();
}
