// One open layer property for exactly one write: opened at construction, disposed at destruction,
// so at most one host stream is open at a time.
#pragma once

#include "host_api.h"
#include "shell/suite_handler.h"

class StreamValue {
public:
    // A stream that cannot be opened stays null and is not reported.
    StreamValue(int plugin_id, AEGP_LayerH layer, int which_stream);
    virtual ~StreamValue();

    StreamValue(const StreamValue&) = delete;
    StreamValue& operator=(const StreamValue&) = delete;

    // True when the host accepted the value.
    bool set_value(const AEGP_StreamValue& value);
    // True when the key was inserted; its index goes through key_index when that is not null.
    bool insert_key(const A_Time& time, short time_mode, int* key_index);

    AEGP_StreamRefH stream;

private:
    AEGP_SuiteHandler suites;
    int plugin_id;
};
