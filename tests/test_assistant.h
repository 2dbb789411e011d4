// A small assistant for the engine's tests: it builds the shared option controls through the
// factory and places record k of the list at (100·k, 0, 500), so that what the engine writes can
// be predicted without a real layout.
#pragma once

#include "common/adobe/AssistantDlg.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

constexpr const char* kTestAssistantName = "Test Assistant";
constexpr ADMInt32 kTestAssistantOkId = 1;  // a user change of id 1 also means "Apply"

class TestAssistant : public AssistantDlg {
public:
    // Controls whose identifiers are in `missing` are not built.
    explicit TestAssistant(int plugin_id, std::set<ADMInt32> missing = {});

    ASErr Init() override;
    void Destroy() override;
    A_Err get_layers_pos() override;
    std::string get_name() const override { return kTestAssistantName; }
    bool is_orient_changed() override { return turns_layers; }

    // The snapshot and record list as "Apply" builds them, without ordering or layout.
    A_Err build_records();

    using AssistantDlg::collection;
    using AssistantDlg::comp_height;
    using AssistantDlg::comp_width;
    using AssistantDlg::layers;
    using AssistantDlg::max_height;
    using AssistantDlg::max_width;
    using AssistantDlg::order_layers;

    A_Err layout_result = 0;
    bool turns_layers = true;
    std::function<void(std::list<LayerInfo>&)> after_layout;  // runs on the placed list

    int applies = 0;
    int destroys = 0;
    std::vector<A_long> layout_input;  // layer indices as the layout received them
    std::vector<bool> layout_clones;

private:
    std::set<ADMInt32> missing_;
};
