#include "cli/DemoContents.h"

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace Demo {
namespace {

constexpr std::chrono::minutes at(int hour, int minute = 0) { return hour * 60min + minute * 1min; }

constexpr auto errand = "errand"_L1;
constexpr auto deepWork = "deep-work"_L1;
constexpr QLatin1StringView allTags[] = {errand, deepWork};

constexpr Filter allFilters[] = {
    {"High this week"_L1, R"({"all": [{"priority": [5]}, {"date": ["overdue", "next7Days"]}]})"_L1},
};

constexpr auto high = KWTaskPriorityHigh;
constexpr auto medium = KWTaskPriorityMedium;
constexpr auto low = KWTaskPriorityLow;

constexpr Task inbox[] = {
    {.title = "Send the revised contract"_L1, .when = When{-1, at(16)}, .priority = high, .tag = deepWork},
    {.title = "Renew library card"_L1, .when = When{-3}},
    {.title = "Ask about the bike repair"_L1},
    {.title = "Find a frame for the map"_L1},
    {.title = "Pay the water bill"_L1, .when = When{0}, .state = State::Done},
    {.title = "Answer the survey"_L1, .when = When{0, at(8)}, .state = State::Done},
    {.title = "Weekly plan"_L1, .when = When{-5, at(16), at(17)}, .state = State::Done},
    {.title = "Weekly plan"_L1, .when = When{2, at(16), at(17)}, .repeatRule = "RRULE:FREQ=WEEKLY"_L1},
    {.title = "Book the dentist"_L1, .when = When{-6}, .state = State::Trashed},
    {.title = "Packing list of last summer"_L1, .state = State::Trashed},
};

constexpr Task groceries[] = {
    {.title = "Buy tomatoes, basil and bread"_L1, .when = When{0, at(18)}, .priority = low, .tag = errand},
    {.title = "Order coffee beans"_L1, .when = When{2}, .tag = errand},
    {.title = "Fill the pantry list"_L1, .when = When{4, at(10)}, .repeatRule = "RRULE:FREQ=WEEKLY"_L1},
    {.title = "Oat milk"_L1},
    {.title = "Rice and lentils"_L1},
    {.title = "Dish soap"_L1, .tag = errand},
    {.title = "Stamps for the postcards"_L1, .when = When{0}, .tag = errand, .state = State::Done},
};

constexpr Task garden[] = {
    {.title = "Water the seedlings"_L1, .when = When{0}, .repeatRule = "RRULE:FREQ=DAILY;INTERVAL=2"_L1},
    {.title = "Cut back the roses"_L1, .when = When{3}},
    {.title = "Sort the seed box"_L1},
    {.title = "Clean the bird feeder"_L1, .when = When{0}, .state = State::Done},
};

constexpr Item announcementItems[] = {
    {"Collect quotes from the team"_L1, State::Done},
    {"Agree on the date"_L1, State::Done},
    {"First draft"_L1, State::Open},
    {"Two screenshots"_L1, State::Open},
};

constexpr Task clientLaunch[] = {
    {.title = "Write the launch announcement"_L1,
     .when = When{0, at(9, 30), at(11)},
     .priority = high,
     .tag = deepWork,
     .repeatRule = "RRULE:FREQ=MONTHLY"_L1,
     .content = "One page for the newsletter and a short version for the site. "
                "Keep the opening line from the draft."_L1,
     .items = announcementItems,
     .estimatedPomos = 20},
    {.title = "Review the budget"_L1,
     .when = When{0, at(14), at(15)},
     .priority = medium,
     .repeatRule = "RRULE:FREQ=WEEKLY"_L1},
    {.title = "Walk through the demo"_L1, .when = When{1, at(10)}, .priority = high, .tag = deepWork},
    {.title = "Book the meeting room"_L1, .when = When{1}, .tag = errand},
    {.title = "Check every link of the site"_L1, .when = When{2, at(15)}, .tag = deepWork},
    {.title = "Prepare the press kit"_L1, .when = When{3, at(11)}, .priority = medium, .tag = deepWork},
    {.title = "Print the badges"_L1, .when = When{4}, .tag = errand},
    {.title = "Rehearse the talk"_L1, .when = When{5, at(9)}, .priority = high, .tag = deepWork},
    {.title = "Launch day"_L1, .when = When{6}, .priority = high},
    {.title = "Kick-off with the print shop"_L1, .when = When{-4, at(9), at(10, 30)}, .state = State::Done},
    {.title = "Lunch at the market"_L1, .when = When{-1, at(12), at(12, 45)}, .state = State::Done},
    {.title = "Write down what we learned"_L1, .tag = deepWork},
    {.title = "Thank the early testers"_L1, .parent = "Write down what we learned"_L1},
    {.title = "Archive the drafts"_L1, .parent = "Write down what we learned"_L1},
};

constexpr Task reading[] = {
    {.title = "Plan the weekend hike"_L1, .when = When{0}},
    {.title = "Return the two novels"_L1, .when = When{1, at(17, 30)}},
    {.title = "Chapter on memory models"_L1, .when = When{2}, .tag = deepWork},
    {.title = "Notes on the calendar standard"_L1, .when = When{5}},
    {.title = "Essay on calm software"_L1},
    {.title = "Field guide to mosses"_L1},
    {.title = "History of clocks"_L1},
    {.title = "Poems from the library sale"_L1},
    {.title = "Long article on rivers"_L1},
    {.title = "Interview notes"_L1, .when = When{-2, at(10, 30), at(12, 30)}, .state = State::Done},
    {.title = "Review of last year's list"_L1, .when = When{-2}, .state = State::Done},
    {.title = "Swap books with the neighbours"_L1, .when = When{-1}, .state = State::Done},
};

constexpr List allLists[] = {
    {"Groceries"_L1, "#e79a0c"_L1, "Home"_L1, groceries},
    {"Garden"_L1, "#2b9a66"_L1, "Home"_L1, garden},
    {"Client launch"_L1, "#3e8ef7"_L1, {}, clientLaunch},
    {"Reading"_L1, "#d6409f"_L1, {}, reading},
};

constexpr auto everyDay = "RRULE:FREQ=DAILY;INTERVAL=1"_L1;

constexpr Habit allHabits[] = {
    {.name = "Stretch"_L1,
     .iconRes = "sun"_L1,
     .color = "#e79a0c"_L1,
     .section = "Morning"_L1,
     .repeatRule = everyDay,
     .week = "ddddddd"_L1,
     .missesOneOf = 13},
    {.name = "Write a page"_L1,
     .iconRes = "pencil"_L1,
     .color = "#8482f2"_L1,
     .section = "Morning"_L1,
     .repeatRule = "RRULE:FREQ=WEEKLY;X-TIMES=5"_L1,
     .week = "ddxddd."_L1,
     .missesOneOf = 4},
    {.name = "Drink water"_L1,
     .iconRes = "waves"_L1,
     .color = "#3e8ef7"_L1,
     .section = "Afternoon"_L1,
     .repeatRule = everyDay,
     .unit = "cups"_L1,
     .goal = 8,
     .week = "ddd4dd5"_L1,
     .missesOneOf = 6},
    {.name = "Read"_L1,
     .iconRes = "moon"_L1,
     .color = "#2b9a66"_L1,
     .section = "Night"_L1,
     .repeatRule = "RRULE:FREQ=DAILY;INTERVAL=1;BYDAY=MO,WE,FR"_L1,
     .week = "dddddd."_L1,
     .missesOneOf = 9},
    {.name = "Practise the piano"_L1,
     .iconRes = "music"_L1,
     .color = "#d6409f"_L1,
     .section = "Night"_L1,
     .repeatRule = "RRULE:FREQ=DAILY;INTERVAL=3"_L1,
     .week = "dddddd."_L1,
     .missesOneOf = 7},
};

constexpr auto announcement = "Write the launch announcement"_L1;
constexpr auto budget = "Review the budget"_L1;
constexpr auto memoryModels = "Chapter on memory models"_L1;
constexpr auto pressKit = "Prepare the press kit"_L1;
constexpr auto stopwatch = KWFocusTypeStopwatch;

constexpr Focus allFocus[] = {
    {0, at(6, 35), 5min, "Stretch"_L1},
    {0, at(6, 45), 10min, "Write a page"_L1},
    {0, at(7), 65min, "Weekly plan"_L1, stopwatch, 10min},
    {0, at(8, 20), 25min, "Plan the weekend hike"_L1},
    {0, at(9), 25min, budget},
    {0, at(9, 30), 25min, announcement},
    {1, at(8, 30), 25min, announcement},
    {1, at(9), 25min, announcement},
    {1, at(9, 30), 25min, announcement},
    {1, at(10, 15), 25min, budget},
    {1, at(13), 2h, pressKit, stopwatch, 20min},
    {1, at(16), 25min, memoryModels},
    {1, at(21), 25min, "Read"_L1},
    {2, at(9), 25min, announcement},
    {2, at(9, 30), 25min, announcement},
    {2, at(10), 25min, "Rehearse the talk"_L1},
    {2, at(14), 25min, memoryModels},
    {2, at(14, 30), 25min, memoryModels},
    {2, at(19), 63min, "Practise the piano"_L1, stopwatch},
    {3, at(9), 25min, pressKit},
    {3, at(9, 30), 25min, pressKit},
    {3, at(10), 25min, "Walk through the demo"_L1},
    {3, at(11), 25min, budget},
    {3, at(14), 117min, "Interview notes"_L1, stopwatch, 13min},
    {3, at(21), 25min, "Read"_L1},
    {4, at(10), 33min, "Sort the seed box"_L1, stopwatch},
    {4, at(17, 15), 25min, "Essay on calm software"_L1},
    {5, at(9), 25min, announcement},
    {5, at(9, 30), 25min, announcement},
    {5, at(10, 15), 25min, "Check every link of the site"_L1},
    {5, at(13, 30), 25min, budget},
    {5, at(14), 25min, budget},
    {5, at(16), 47min, "Weekly plan"_L1, stopwatch, 5min},
    {6, at(9, 15), 25min, "Notes on the calendar standard"_L1},
    {6, at(9, 45), 25min, memoryModels},
    {6, at(19), 32min, "Practise the piano"_L1, stopwatch},
    {6, at(21), 25min, "Read"_L1},
};

} // namespace

std::span<const QLatin1StringView> tags() { return allTags; }

std::span<const Filter> filters() { return allFilters; }

std::span<const Task> inboxTasks() { return inbox; }

std::span<const Habit> habits() { return allHabits; }

std::span<const Focus> focus() { return allFocus; }

std::span<const List> lists() { return allLists; }

} // namespace Demo
