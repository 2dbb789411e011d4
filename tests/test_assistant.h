// A small assistant for the engine's tests: it builds only the shared option controls through the
// factory and places record k of the list at (100·k, 0, 500), so that what the engine writes can be
// predicted without any real layout.
#pragma once

#include "common/adobe/AssistantDlg.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

class TestAssistant : public AssistantDlg {
public:
    // Controls whose identifiers are in `missing` are not built.
    explicit TestAssistant(int plugin_id, std::set<ADMInt32> missing = {});

    ASErr Init() override;
    void Notify(IADMNotifier notifier) override;
    void Destroy() override;
    A_Err get_layers_pos() override;
    std::string get_name() const override;
    bool is_orient_changed() override;

    // What the test sees of the engine's state.
    const std::list<LayerInfo>& records() const { return layers; }
    std::list<LayerInfo>& mutable_records() { return layers; }
    AEGP_CollectionH held_collection() const { return collection; }
    A_long largest_width() const { return max_width; }
    A_long largest_height() const { return max_height; }
    A_long width_of_comp() const { return comp_width; }
    A_long height_of_comp() const { return comp_height; }
    A_Err build_records();  // snapshot plus record list, as "Apply" starts
    void order_records() { order_layers(); }

    // Knobs.
    ASErr init_result = 0;
    A_Err layout_result = 0;
    bool turns_layers = true;
    bool repeats = true;  // whether the layout plans the "Repeat Layers" copies
    // Runs after the placement, on the final list.
    std::function<void(std::list<LayerInfo>&)> after_layout;

    // Counters and the list as the layout received it (layer indices, clone flags).
    int applies = 0;
    int notifies = 0;
    int destroys = 0;
    std::vector<A_long> layout_input;
    std::vector<bool> layout_clones;

private:
    void build_controls();
    void add_box(ADMInt32 id, const char* label, short top, int value);

    std::set<ADMInt32> missing_;
};

constexpr const char* kTestAssistantName = "Test Assistant";
// A second push button, for the user change that also means "Apply".
constexpr ADMInt32 kTestAssistantOkId = 1;
