#include "nlp/Readings.h"
#include "nlp/languages/Languages.h"
#include "nlp/languages/WordValues.h"

namespace nlp {

// Among the readings, so that the rules can name them.
namespace readings::chineseTables {

using enum Symbol;

// Simplified and traditional side by side.
constexpr Word words[] = {
    {L"周日|周天|星期日|星期天|礼拜日|礼拜天|週日|週天|禮拜日|禮拜天", Weekday, 0},
    {L"周一|星期一|礼拜一|週一|禮拜一", Weekday, 1},
    {L"周二|星期二|礼拜二|週二|禮拜二", Weekday, 2},
    {L"周三|星期三|礼拜三|週三|禮拜三", Weekday, 3},
    {L"周四|星期四|礼拜四|週四|禮拜四", Weekday, 4},
    {L"周五|星期五|礼拜五|週五|禮拜五", Weekday, 5},
    {L"周六|星期六|礼拜六|週六|禮拜六", Weekday, 6},
    {L"周末|週末|周六日|週六日|周六周日|週六週日|星期六日", FreeWeekend},
    {L"工作日|平日", Workday},

    {L"分钟|分鐘", Unit, value(nlp::Unit::Minute)},
    {L"小时|小時|钟头|鐘頭", Unit, value(nlp::Unit::Hour)},
    {L"天|日", Unit, value(nlp::Unit::Day)},
    {L"周|星期|礼拜|週|禮拜", Unit, value(nlp::Unit::Week)},
    {L"月", Unit, value(nlp::Unit::Month)},
    {L"年", Unit, value(nlp::Unit::Year)},
    {L"年", YearMark},
    {L"月|月份", MonthMark},
    {L"日|号|號", DayMark},
    {L"点|点钟|點|點鐘|时|時", HourMark},
    {L"点整|點整", HourMark},
    {L"一点|一點", AmbiguousHour, 1},
    {L"钟|鐘|整", OClock},
    {L"分", MinuteMark},
    {L"刻", Quarter},
    {L"半", Half},
    {L"个|個", Counter},
    {L"第一个|第一個|第1个|第1個", Ordinal, 1},
    {L"第二个|第二個|第2个|第2個", Ordinal, 2},
    {L"第三个|第三個|第3个|第3個", Ordinal, 3},
    {L"第四个|第四個|第4个|第4個", Ordinal, 4},
    {L"最后一个|最後一個", Ordinal, -1},

    {L"今天|今日", RelativeDay, 0},
    {L"明天|明日|明儿", RelativeDay, 1},
    {L"后天|後天", RelativeDay, 2},
    {L"大后天|大後天", RelativeDay, 3},
    {L"今晚|今夜", DayWithPart, dayWith(0, nlp::DayPart::Night)},
    {L"今早|今晨", DayWithPart, dayWith(0, nlp::DayPart::Morning)},
    {L"明晚", DayWithPart, dayWith(1, nlp::DayPart::Night)},
    {L"明早|明晨", DayWithPart, dayWith(1, nlp::DayPart::Morning)},
    {L"后晚|後晚", DayWithPart, dayWith(2, nlp::DayPart::Night)},
    {L"今年", RelativeYear, 0},
    {L"明年", RelativeYear, 1},
    {L"后年|後年", RelativeYear, 2},
    {L"昨天|昨日|昨晚|前天|大前天|前晚|去年|前年", PastDay},

    {L"凌晨|清晨", FreeDayPart, value(nlp::DayPart::Dawn)},
    {L"早上|早晨|上午|早间", FreeDayPart, value(nlp::DayPart::Morning)},
    {L"中午|正午", FreeDayPart, value(nlp::DayPart::Noon)},
    {L"下午|午后|午後", FreeDayPart, value(nlp::DayPart::Afternoon)},
    {L"傍晚|黄昏|黃昏", FreeDayPart, value(nlp::DayPart::Evening)},
    {L"晚上|夜里|夜裡|夜晚|深夜|晚间|晚間", FreeDayPart, value(nlp::DayPart::Night)},
    {L"午夜|半夜", FreeDayPart, value(nlp::DayPart::Night)},

    {L"到|至", To},
    {L"从|從|自", From},
    {L"起|开始|開始", Onwards},
    {L"在|于|於|请在|請在|请于|請於", On},
    {L"截止", On},
    {L"过|過", In},
    {L"后|後|之后|之後|以后|以後|过后|過後|内|內|之内|之內|以内|以內", Later},
    {L"前|之前|以前", Before},
    {L"前|之前|以前", Ago},
    {L"提前", Advance},
    {L"每", Every},
    {L"每隔", EverySkipping},
    {L"每晚|每夜|每天晚上", EveryPart, value(nlp::DayPart::Night)},
    {L"每早|每天早上", EveryPart, value(nlp::DayPart::Morning)},
    {L"下|下个|下個|下一|下一个|下一個", Next, 1},
    {L"下下|下下个|下下個", Next, 2},
    {L"这|这个|這|這個|本", This},
    {L"上|上个|上個|上上", Last},
    {L"的", Of},
    {L"和|与|及|跟|與", And},
    {L"底|末", EndOf},
    {L"初", StartOf},
    {L"最后一天|最後一天", LastDay},
    {L"天天|每天一次|每日一次", Frequency, every(1, nlp::Unit::Day)},
    {L"隔天|隔日", Frequency, every(2, nlp::Unit::Day)},
    {L"每周一次|每星期一次|每週一次", Frequency, every(1, nlp::Unit::Week)},
    {L"隔周|隔週", Frequency, every(2, nlp::Unit::Week)},
    {L"每月一次|每个月一次|每個月一次", Frequency, every(1, nlp::Unit::Month)},
    {L"每季度|每个季度|每個季度", Frequency, every(3, nlp::Unit::Month)},
    {L"每半年|每半年一次", Frequency, every(6, nlp::Unit::Month)},
    {L"每年一次", Frequency, every(1, nlp::Unit::Year)},
    {L"提醒我|记得提醒我|記得提醒我|请提醒我|請提醒我", Remind, 1},
    {L"提醒", Remind, 0},
    {L"持续|持續|为期|為期|历时|歷時|共|一共|总共|總共", For},
    {L"次|遍", CountMark},
    {L"直到|截止到|截至", Until},
    {L"第|共|有|以下|如下|注意|版本|比分|比例|得分|评分|評分|第几", ScoreWord},

    // Those of the lunar calendar and Qingming are left out.
    {L"元旦|元旦节|元旦節", Holiday, fixedDay(1, 1)},
    {L"情人节|情人節", Holiday, fixedDay(2, 14)},
    {L"妇女节|婦女節", Holiday, fixedDay(3, 8)},
    {L"植树节|植樹節", Holiday, fixedDay(3, 12)},
    {L"愚人节|愚人節", Holiday, fixedDay(4, 1)},
    {L"五一|劳动节|勞動節|五一劳动节|五一勞動節", Holiday, fixedDay(5, 1)},
    {L"六一|儿童节|兒童節|六一儿童节|六一兒童節", Holiday, fixedDay(6, 1)},
    {L"教师节|教師節", Holiday, fixedDay(9, 10)},
    {L"国庆|國慶|国庆节|國慶節", Holiday, fixedDay(10, 1)},
    {L"万圣节|萬聖節", Holiday, fixedDay(10, 31)},
    {L"双十一|雙十一|双11|雙11", Holiday, fixedDay(11, 11)},
    {L"双十二|雙十二|双12|雙12", Holiday, fixedDay(12, 12)},
    {L"感恩节|感恩節", Holiday, nthWeekday(4, 4, 11)},
    {L"平安夜", Holiday, fixedDay(12, 24)},
    {L"圣诞|聖誕|圣诞节|聖誕節", Holiday, fixedDay(12, 25)},
    {L"跨年夜", Holiday, fixedDay(12, 31)},
    {L"复活节|復活節", Holiday, easter(0)},

    // Words whose parts would be read.
    {L"一下|上下|以上|以后再|以後再|天后宫|天天向上|后天性|後天性|天气|天氣|天空|天然|天线|天線|日本|"
     L"日记|日記|日报|日報|日程|"
     L"日常|日志|日誌|"
     L"周末愉快|周末快乐|周年|週年|周期|週期|周报|週報|周到|周围|周边|周刊|月饼|月餅|月亮|月票|月报|月報|"
     L"月球|年轻|"
     L"年輕|年级|年級|年报|年報|年会|年會|年货|年貨|时间|時間|时候|時候|时代|時代|时尚|分享|分析|分类|分類|"
     L"分数|"
     L"分數|分之|刻度|半夜鸡叫|半价|半價|今天新闻|生日|节日|節日|平时|平時|前端|后端|後端|前面|后面|後面|"
     L"前台|"
     L"后台|後台|今日头条|今日頭條|明日方舟|明日之后|晚上好|早上好|下午好|上午好|中午好|下午茶|早上好呀|"
     L"夜晚的|"
     L"上海|上面|下面|下载|下載|下单|下單|上班|下班|上课|下课|这些|这样|这次|这里|本人|本来|本地|本周末版|"
     L"自己|自动|"
     L"自動|从来|從來|于是|於是|在线|在線|现在|現在|存在|到底|到达|到達|直到现在|每次|每人|每个人|每個人|"
     L"每件|超过|超過|通过|通過|经过|經過|不过|不過|过去|過去|过年|過年|过节|過節|过期|過期|过程|過程|度过|"
     L"度過|路过|路過|错过|錯過|看过|去过|用过|内容|內容|内部|內部|内存|最初|初中|初级|初級|初步|次数|次數",
     Plain},
    {L"圣诞礼物|圣诞树|圣诞老人|圣诞快乐|圣诞卡|圣诞帽|圣诞歌|聖誕禮物|聖誕樹|聖誕老人|聖誕快樂|聖誕卡|"
     L"元旦晚会|元旦快乐|元旦贺卡|元旦晚會|元旦快樂|国庆作文|国庆快乐|国庆阅兵|国庆档|國慶快樂|"
     L"情人节礼物|情人節禮物|五一路|五一广场|五一廣場|六一路|双十一清单|双11清单",
     Plain},
    {L"一点点|一點點|有点|有點|点儿|点赞|點讚|点餐|點餐|点击|點擊|点评|點評|点名|点菜|重点|重點|特点|特點|"
     L"优点|缺点|地点|地點|观点|要点|要點|焦点|景点|热点|点建议|点意见|点要求|点原因|点注意|点理由|点经验|"
     L"点想法|点心|点心得|点体会|点感想|点看法|点启示|点总结|"
     L"點心|点数|點數|点钱|点事",
     Plain},
    {L"号楼|号线|号门|号店|号电池|号码|号机|号房|号院|号厅|号桌|号球|号文件|號樓|號線|號門|號店|號碼|號房|"
     L"號院|號廳|号会议室|號會議室|号窗口|號窗口|号站台|号航站楼|号馆|號館|号仓|号车厢|号选手|号柜|號櫃|"
     L"號桌|日元|日游|日遊|月租|年代|年前的|天前端|时装",
     Plain},
};

constexpr Rule rules[] = {
    // Amounts.
    {Quantity, {Number, Unit}, uncountedQuantity},
    {Quantity, {Number, Counter, Unit}, quantity},
    {Quantity, {Number, Dot, Number, maybe(Counter), Unit}, decimalQuantity},
    {Quantity, {Half, maybe(Counter), Unit}, halfQuantity},
    {Quantity, {Number, Counter, Half, Unit}, quantityAndHalf},
    {AnyWeekday, {Weekday}, weekday},

    // Times of day.
    {Clock, {Number, Colon, Number}, writtenTime},
    {Clock, {Number, HourMark}, spokenTime},
    {Clock, {Number, HourMark, Half}, spokenTime},
    {Clock, {Number, HourMark, Number, maybe(MinuteMark)}, spokenTime},
    {Clock, {Number, HourMark, Number, Quarter}, spokenTime},
    {Clock, {AmbiguousHour, OClock}, spokenTime},
    {Clock, {AmbiguousHour, Half}, spokenTime},
    {Clock, {AmbiguousHour, Quarter}, spokenTime},
    {Clock, {AmbiguousHour, Number, MinuteMark}, spokenTime},
    {Clock, {AmbiguousHour, Number, Quarter}, spokenTime},
    {Clock, {FreeDayPart, maybe(Of), AmbiguousHour}, spokenTime},
    {Clock, {FreeDayPart, maybe(Of), Clock}, dayPart},
    {Clock, {On, Clock}, inner},
    {ClockRange, {Clock, To, Clock}, clockRange},
    {ClockRange, {Number, To, Clock}, clockRange},
    {ClockRange, {From, ClockRange}, inner},
    {ClockRange, {FreeDayPart, maybe(Of), ClockRange}, dayPart},

    // Days.
    {Day, {RelativeDay}, relativeDay},
    {Day, {Date}, inner},
    {Day, {Weekday}, weekday},
    {Day, {This, maybe(Counter), AnyWeekday}, thisWeekday},
    {Day, {Next, AnyWeekday}, nextWeekday},
    {Day, {Next, Unit, maybe(Of), AnyWeekday}, weekdayOfWeek},
    {Day, {FreeWeekend}, weekend},
    {Day, {Holiday}, holiday, Guard::Closes},
    {Day, {RelativeYear, maybe(Of), Holiday}, holiday},
    {Day, {Next, Unit, maybe(Of), Ordinal, AnyWeekday}, nthWeekdayOfMonth},
    {Day, {Unit, StartOf}, comingPeriod},
    {Day, {Next, Unit, StartOf}, comingPeriod},
    {Day, {In, Quantity}, daysAhead},
    {Day, {This, FreeWeekend}, weekend},
    {Day, {Next, FreeWeekend}, weekend},
    {Date, {Number, MonthMark, Number, DayMark}, numberedMonthAndDay},
    {Date, {Number, MonthMark, Number}, numberedMonthAndDay, Guard::NotCounted},
    {Date, {Number, YearMark, Number, MonthMark, Number, maybe(DayMark)}, yearMonthDay, Guard::NotCounted},
    {Date, {RelativeYear, maybe(Of), Number, MonthMark, Number, DayMark}, numberedMonthAndDay},
    {Day, {RelativeYear}, firstOfYear},
    {Day, {Number, DayMark}, dayOfMonth},
    {Day, {Next, MonthMark, maybe(Of), Number, DayMark}, dayOfMonth},
    {Day, {This, MonthMark, maybe(Of), Number, DayMark}, dayOfMonth},
    {Day, {Next, Unit}, firstOfPeriod},
    {Day, {Unit, EndOf}, lastOfPeriod},
    {Day, {Next, Unit, EndOf}, lastOfPeriod},
    {Day, {This, Unit, EndOf}, lastOfPeriod},
    {Day, {Quantity, Later}, daysAhead},
    {Day, {On, Day}, inner},
    {Day, {From, Day, maybe(Onwards)}, inner},
    {DayRange, {Day, To, Day}, dayRange},
    {DayRange, {Day, To, Number, DayMark}, dayToDayOfMonth},
    {DayRange, {Number, To, Number, DayMark}, daysOfComingMonthRange},
    {DayRange, {Number, MonthMark, Number, To, Number, DayMark}, daysOfMonthRange},
    {DayRange, {From, DayRange}, inner},

    // Repeats.
    {WeekdayTail, {Number}, weekdayNumbers, Guard::NotCounted},
    {WeekdayTail, {Comma, Number, maybe(WeekdayTail)}, weekdayNumbers, Guard::NotCounted},
    {Weekdays, {AnyWeekday, maybe(WeekdayTail)}, weekdays},
    {Weekdays, {AnyWeekday, Comma, Weekdays}, weekdays},
    {Weekdays, {AnyWeekday, And, Weekdays}, weekdays},
    {Weekdays, {AnyWeekday, To, AnyWeekday}, weekdaySpan},
    {EveryUnit, {Every, maybe(Counter), Unit}, everyUnit},
    {EveryUnit, {Every, Number, maybe(Counter), Unit}, everyUnit},
    {EveryUnit, {EverySkipping, Number, maybe(Counter), Unit}, everySkippedUnit},
    {EveryUnit, {Frequency}, frequency},
    {Repeat, {EveryUnit}, repeatAlone},
    {Repeat, {EveryUnit, maybe(Of), Number, DayMark}, everyDayOfMonth},
    {Repeat, {EveryUnit, maybe(Of), Date}, everyDate},
    {Repeat, {EveryUnit, maybe(Of), Weekdays}, everyWeekdays},
    {Repeat, {EveryUnit, maybe(Of), LastDay}, everyLastDayOfMonth},
    {Repeat, {EveryUnit, EndOf}, everyLastDayOfMonth},
    {Repeat, {EveryUnit, maybe(Of), Ordinal, AnyWeekday}, everyNthWeekdayOfMonth},
    {Repeat, {EveryUnit, maybe(Of), Holiday}, everyHoliday, Guard::Closes},
    {Repeat, {Weekdays, EveryUnit}, weekdaysEveryDay},
    {Repeat, {Workday, EveryUnit}, weekdaysEveryDay},
    {Repeat, {Weekdays, EveryPart}, weekdaysEveryPart},
    {Repeat, {Workday, EveryPart}, weekdaysEveryPart},
    {Repeat, {Every, maybe(Counter), Weekdays}, everyWeekdays},
    {Repeat, {Every, maybe(Counter), Workday}, everyWorkday},
    {Repeat, {Every, maybe(Counter), FreeWeekend}, everyWeekend},
    {Repeat, {Every, maybe(Counter), FreeDayPart}, everyPart},
    {Repeat, {EveryPart}, everyPart},
    {Limit, {Until, Day}, untilDay},
    {Limit, {For, Number, CountMark}, countOfTimes},

    // Spans and reminders.
    {Moment, {Quantity, Later}, minutesAhead},
    {Moment, {In, Quantity}, minutesAhead},
    {Duration, {For, Quantity}, duration},
    {Leads, {Quantity, Before}, lead},
    {Leads, {Advance, Quantity}, lead},
    {Leads, {Advance, Quantity, And, Quantity}, lead},
    {Leads, {Advance, Quantity, And, Leads}, lead},
    {Reminder, {Remind}, reminder},
    {Reminder, {Remind, Leads}, reminder},
    {Reminder, {Leads, Remind}, reminder},

    // Parts of a day, and what belongs together only side by side.
    {Part, {FreeDayPart}, dayPart},
    {Combined, {DayWithPart}, dayWithPart},
    {Combined, {Day, maybe(Of), Clock}, inner},
    {Combined, {Day, maybe(Of), ClockRange}, inner},
    {Combined, {Day, maybe(Of), AmbiguousHour}, spokenTime},
    {Combined, {Day, maybe(Of), FreeDayPart}, dayPart},
    {Combined, {Workday, maybe(Of), Clock}, everyWorkday},
    {Combined, {Repeat, maybe(Of), Clock}, inner},
    {Combined, {Repeat, maybe(Of), ClockRange}, inner},
    {Combined, {Day, maybe(Of), Clock, Before}, inner},
    {Combined, {Day, Before}, inner},
    {Combined, {Clock, Before}, inner},

    // What lies in the past.
    {Bygone, {PastDay, maybe(FreeDayPart)}, bygone},
    {Bygone, {Last, Unit}, bygone, Guard::Longest},
    {Bygone, {Last, maybe(Counter), AnyWeekday}, bygone, Guard::Longest},
    {Bygone, {Last, FreeWeekend}, bygone},
    {Bygone, {Quantity, Ago}, bygone},
};

static_assert(areOrdered(rules));

} // namespace readings::chineseTables

constinit const LanguageTable chinese{L"zh", readings::chineseTables::words, readings::chineseTables::rules};

} // namespace nlp
