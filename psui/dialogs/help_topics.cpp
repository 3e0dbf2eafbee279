#include "psui/dialogs/help_topics.h"

#include <algorithm>
#include <iterator>

namespace psui {

namespace {

struct TopicRow
{
    DWORD topic;
    const WCHAR* page;
};

constexpr TopicRow kTopics[] = {
    {0x0000, TEXT("html/idx_1.htm")},
    {0x0010, TEXT("html/button.htm#ok")},
    {0x0020, TEXT("html/button.htm#cancel")},
    {0x0030, TEXT("html/button.htm#apply")},
    {0x0040, TEXT("html/default.htm")},
    {0x1000, TEXT("html/idx_basic_setup.htm")},
    {0x1010, TEXT("html/basic_setup.htm#sdpaper")},
    {0x1020, TEXT("html/basic_setup.htm#media")},
    {0x1030, TEXT("html/basic_setup.htm#quality")},
    {0x1040, TEXT("html/basic_setup.htm#borderless")},
    {0x1050, TEXT("html/basic_setup.htm#paper_size")},
    {0x1051, TEXT("html/bs_user_defined.htm")},
    {0x1060, TEXT("html/basic_setup.htm#color_mode")},
    {0x1070, TEXT("html/basic_setup.htm#orientation")},
    {0x1080, TEXT("html/basic_setup.htm#copies")},
    {0x1090, TEXT("html/basic_setup.htm#multipage")},
    {0x1100, TEXT("html/basic_setup.htm#page_order")},
    {0x1110, TEXT("html/basic_setup.htm#border_line")},
    {0x1120, TEXT("html/basic_setup.htm#duplex")},
    {0x1121, TEXT("html/bs_duplex_setting.htm")},
    {0x1130, TEXT("html/basic_setup.htm#paper_source")},
    {0x2000, TEXT("html/idx_advanced_setup.htm")},
    {0x2010, TEXT("html/advanced_setup.htm#mono")},
    {0x2011, TEXT("html/as_color_setting.htm")},
    {0x2012, TEXT("html/as_color_setting.htm#bi_directional")},
    {0x2013, TEXT("html/as_color_setting.htm#improve_pattern")},
    {0x2020, TEXT("html/advanced_setup.htm#page_document")},
    {0x2030, TEXT("html/advanced_setup.htm#mirror")},
    {0x2040, TEXT("html/advanced_setup.htm#reverse")},
    {0x2050, TEXT("html/advanced_setup.htm#overlay")},
    {0x2051, TEXT("html/as_overlay_wmark.htm")},
    {0x2052, TEXT("html/as_overlay_custom.htm")},
    {0x2060, TEXT("html/advanced_setup.htm#device_option")},
    {0x2061, TEXT("html/as_device_option.htm#datetime")},
    {0x2062, TEXT("html/as_device_option.htm#qps")},
    {0x2063, TEXT("html/as_device_option.htm#tray")},
    {0x2064, TEXT("html/as_device_option.htm#jpeg_print")},
    {0x2065, TEXT("html/as_device_option.htm#advanced_color_settings")},
    {0x2066, TEXT("html/as_device_option.htm#match_monitor")},
    {0x2067, TEXT("html/as_device_option.htm#print_order")},
    {0x3000, TEXT("html/idx_okiniri_setup.htm")},
    {0x3010, TEXT("html/idx_okiniri_setup_small.htm#okiniri_list")},
    {0x3021, TEXT("html/idx_okiniri_setup.htm#okiniri_save")},
    {0x3020, TEXT("html/idx_okiniri_setup_small.htm#okiniri_save")},
    {0x3030, TEXT("html/idx_okiniri_setup_small.htm#okiniri_default")},
    {0x4000, TEXT("html/idx_status_monitor.htm")},
    {0x4001, TEXT("html/idx_status_monitor_small.htm")},
    {0x5000, TEXT("html/idx_web_support.htm")},
    {0x5001, TEXT("html/idx_web_support_small.htm")},
};

constexpr ControlTopic kControls[] = {
    {3016, 0x5001}, {3019, 0x4001}, {3012, 0x5001}, {1, 0x0010},    {2, 0x0020},    {3028, 0x0030},
    {16, 0x0040},   {3074, 0x1010}, {3039, 0x1020}, {3040, 0x1020}, {3041, 0x1030}, {3042, 0x1030},
    {3065, 0x1040}, {3051, 0x1050}, {3052, 0x1050}, {4017, 0x1060}, {4019, 0x1060}, {4020, 0x1060},
    {3057, 0x1070}, {3058, 0x1070}, {3059, 0x1070}, {3060, 0x1080}, {3061, 0x1080}, {3062, 0x1080},
    {3063, 0x1080}, {3064, 0x1080}, {3053, 0x1090}, {3054, 0x1090}, {3072, 0x1100}, {3073, 0x1100},
    {3055, 0x1110}, {3056, 0x1110}, {3075, 0x1120}, {3076, 0x1120}, {3067, 0x1130}, {3068, 0x1130},
    {3043, 0x2010}, {4014, 0x2010}, {4015, 0x2010}, {3049, 0x2010}, {3097, 0x2012}, {3125, 0x2013},
    {4068, 0x2020}, {4069, 0x2020}, {4070, 0x2020}, {4072, 0x2020}, {4074, 0x2020}, {4076, 0x2020},
    {4081, 0x2030}, {4082, 0x2040}, {4089, 0x2050}, {4262, 0x2050}, {4115, 0x2050}, {4116, 0x2060},
    {4200, 0x2066}, {6001, 0x3010}, {3018, 0x3020}, {6012, 0x3030},
};

} // namespace

const WCHAR* HelpPage(DWORD topic)
{
    const auto row = std::find_if(std::begin(kTopics), std::end(kTopics),
                                  [=](const TopicRow& each) { return each.topic == topic; });
    return row != std::end(kTopics) ? row->page : nullptr;
}

std::span<const ControlTopic> ControlTopics()
{
    return kControls;
}

DWORD TopicOfControl(int control)
{
    for (const ControlTopic& each : kControls)
        if (each.control == control)
            return each.topic;
    return 0;
}

} // namespace psui
