#include "screen/menu.h"

#include <iterator>

namespace {

struct Row {
    int id;
    int parentId;
    const char* text;
};

struct NamedMenu {
    const char* name;
    const Row* rows;
    int count;
};

const Row kSoundControl[] = {
    {1001, 0, "Hide"},          {1002, 0, "Manage"},      {1004, 1002, "Properties"},
    {1005, 0, "Delete"},        {1006, 0, "Remove"},      {1007, 0, "Send to"},
    {1008, 1007, "Message"},    {1009, 1007, "Email"},    {1010, 1007, "Blog"},
    {1011, 1007, "Removable Media"}, {1012, 1007, "Bluetooth"}, {1013, 0, "Apply to"},
    {1014, 1013, "Playlist"},   {1015, 1013, "Ringtone"}, {1016, 0, "Use Bluetooth"},
    {1017, 0, "Use Handset"},
    // "Buy More" stands before "Setup" although its id is higher: rows keep
    // the order the user sees.
    {1019, 0, "Buy More"},      {1018, 0, "Setup"},
};

const Row kVideoControl[] = {
    {2001, 0, "Slideshow"},     {2002, 0, "Manage"},      {2004, 2002, "Properties"},
    {2005, 0, "Delete"},        {2006, 0, "Remove"},      {2007, 0, "Zoom"},
    {2008, 2007, "Fit to screen"}, {2009, 2007, "Original"}, {2010, 0, "Send to"},
    {2011, 2010, "Message"},    {2012, 2010, "Email"},    {2013, 2010, "Blog"},
    {2014, 2010, "Removable Media"}, {2015, 2010, "Bluetooth"}, {1016, 0, "Use Bluetooth"},
    {1017, 0, "Use Handset"},   {2020, 0, "Setup"},
};

const Row kVectorControl[] = {
    {3001, 0, "Delete"},        {3002, 0, "Manage"},      {3004, 3002, "Properties"},
    {3005, 0, "Edit"},          {3006, 3005, "Rotate 90 left"}, {3007, 3005, "Rotate 90 right"},
    {3008, 0, "Select Object"}, {3009, 0, "Zoom And Pan"}, {3010, 0, "Send to"},
    {3011, 3010, "Message"},    {3012, 3010, "Email"},    {3013, 3010, "Blog"},
    {3014, 3010, "Removable Media"}, {3015, 3010, "Bluetooth"}, {3016, 3010, "Postcard"},
    {3017, 0, "Quality"},       {3018, 3017, "Best"},     {3019, 3017, "Good"},
    {3020, 3017, "Fair"},
};

const Row kPdSound[] = {
    {4001, 0, "Hide Download"}, {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"}, {4004, 0, "Setup"},
};

const Row kPdVideo[] = {
    {5001, 0, "Hide Download"}, {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"}, {5004, 0, "Setup"},
};

const Row kStreamSound[] = {
    {6001, 0, "Hide"},          {6002, 0, "Edit Bookmark"}, {6003, 0, "Save Bookmark"},
    {1016, 0, "Use Bluetooth"}, {1017, 0, "Use Handset"},  {6006, 0, "Setup"},
};

const Row kStreamVideo[] = {
    {7001, 0, "Edit Bookmark"}, {7002, 0, "Save Bookmark"}, {7003, 0, "Zoom"},
    {7004, 7003, "Fit to screen"}, {7005, 7003, "Original"}, {1016, 0, "Use Bluetooth"},
    {1017, 0, "Use Handset"},   {7008, 0, "Setup"},
};

const Row kVectorSelect[] = {
    {8001, 0, "Zoom And Pan"}, {8002, 0, "Quality"}, {8003, 8002, "Best"}, {8004, 8002, "Good"},
    {8005, 8002, "Fair"},
};

template <int N>
constexpr NamedMenu named(const char* name, const Row (&rows)[N])
{
    return {name, rows, N};
}

// Searched in this order; the first equal name wins.
const NamedMenu kMenus[] = {
    named("sound_control", kSoundControl), named("video_control", kVideoControl),
    named("vector_control", kVectorControl), named("pd_sound", kPdSound),
    named("pd_video", kPdVideo),           named("stream_sound", kStreamSound),
    named("stream_video", kStreamVideo),   named("vector_select", kVectorSelect),
};

} // namespace

void menu::getList(QList<MenuItem*>& list, QString name)
{
    for (const NamedMenu& named : kMenus) {
        if (name != QLatin1String(named.name))
            continue;
        for (int i = 0; i < named.count; ++i) {
            auto* item = new MenuItem;
            item->text = QString::fromLatin1(named.rows[i].text);
            item->id = named.rows[i].id;
            item->parentId = named.rows[i].parentId;
            item->flag = 0;
            list.append(item);
        }
        return;
    }
}
