#include "messenger/guest_lines.h"

namespace messenger::lines {

std::span<const QStringView> names()
{
    static constexpr QStringView list[] = {
        u"Juniper", u"Otto",  u"Pixel", u"Hazel", u"Bram",   u"Maple", u"Quill",  u"Sunny",
        u"Dexter",  u"Olive", u"Rook",  u"Tansy", u"Fennel", u"Ziggy", u"Marble", u"Clover",
    };
    return list;
}

std::span<const QStringView> chatter()
{
    static constexpr QStringView list[] = {
        u"Has anyone seen the sky this evening? :)",
        u"I have just put the kettle on (c)",
        u"My cat has taken my chair again (@)",
        u"What are you all listening to?",
        u"That film was far too long :|",
        u"Nearly the weekend :D",
        u"I burnt the toast. Again. :(",
        u"Who is up for a quiz later? (?)",
        u"I have been walking all day and my feet hurt :s",
        u"Somebody sent me flowers <3",
        u"It is raining cats and dogs here (@) (&)",
        u"I could do with a holiday ;)",
        u"Reading a good book, cannot put it down",
        u"The neighbours are drilling :@",
        u"Two more hours and I am off",
        u"Does anybody remember the name of that song?",
        u"The timetable is at http://example.org/timetable.html, in case you need it",
        u"<i>humming quietly to myself",
        u"<b><u>Quiz at nine, all welcome! <3",
        u"I found the recipe on www.example.com. Delicious :d",
    };
    return list;
}

std::span<const QStringView> greetings()
{
    static constexpr QStringView list[] = {
        u"Hello %1 :)",          u"Hi %1, good to see you!", u"Welcome %1 , take a seat (c)",
        u"Hey %1, how are you?", u"Evening %1 ;)",
    };
    return list;
}

std::span<const QStringView> answers()
{
    static constexpr QStringView list[] = {
        u"That is what I thought too, %1 :)",
        u"Really, %1? Tell us more!",
        u"Ha, good one %1 :D",
        u"I am not so sure about that, %1 ;)",
        u"%1, you took the words out of my mouth",
        u"Hmm, let me think about it, %1 :|",
        u"So do I, %1 <3",
    };
    return list;
}

std::span<const QStringView> whispers()
{
    static constexpr QStringView list[] = {
        u"Psst, %1, nobody else can read this :)",
        u"Nice of you to write, %1 (c)",
        u"I am all ears, %1",
        u"Just between us, %1 ;)",
    };
    return list;
}

std::span<const QStringView> arrivals()
{
    static constexpr QStringView list[] = {
        u"Thanks for letting me in! :)",
        u"Nice room you have here (^)",
        u"Hello everybody :D",
    };
    return list;
}

std::span<const QStringView> emotionsForRoom()
{
    static constexpr QStringView list[] = {
        u"%U% waves at everybody",
        u"%U% yawns and looks at the clock",
        u"%U% does a little dance",
    };
    return list;
}

std::span<const QStringView> emotionsForUser()
{
    static constexpr QStringView list[] = {
        u"%U% gives %O% a big hug",
        u"%U% hands %O% a cup of coffee",
        u"%U% winks at %O%",
    };
    return list;
}

} // namespace messenger::lines
