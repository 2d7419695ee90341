#pragma once

#include <QStringView>

#include <array>

namespace quorvel {

/// What people write, and the layout in which they do.
struct Phrases {
    QStringView layout;
    std::array<QStringView, 12> texts;
};

/// None of them was looked at when the costs were chosen.
inline constexpr std::array phrases{
    Phrases{u"us",
            {u"hello", u"how are you?", u"see you tomorrow", u"thanks a lot!", u"What time is it?",
             u"I will be there in 10 minutes", u"Please send me the file again.",
             u"The meeting starts at nine.", u"sorry, wrong window", u"Can you buy some milk?",
             u"just a moment", u"My keyboard is broken again"}},
    Phrases{u"ru",
            {u"привет", u"как дела?", u"спасибо большое!", u"до завтра",
             u"Сколько сейчас времени?", u"Я буду через 10 минут",
             u"Пришли мне файл, пожалуйста.", u"Съешь ещё этих мягких булок",
             u"извини, не туда написал", u"хорошо, договорились", u"сейчас посмотрю",
             u"Объясни, что случилось."}},
    Phrases{u"ua",
            {u"привіт", u"як справи?", u"дуже дякую!", u"до побачення", u"Котра зараз година?",
             u"Я буду за 10 хвилин", u"Надішли мені файл, будь ласка.", u"Це моє улюблене місто",
             u"вибач, помилився вікном", u"добре, домовились", u"Її звати Ганна",
             u"зустрінемось завтра ввечері"}},
    Phrases{u"gr",
            {u"καλημέρα", u"τι κάνεις;", u"ευχαριστώ πολύ!", u"τα λέμε αύριο",
             u"Τι ώρα είναι τώρα;", u"Θα είμαι εκεί σε 10 λεπτά",
             u"Στείλε μου το αρχείο, παρακαλώ.", u"Η συνάντηση αρχίζει στις εννέα.",
             u"συγγνώμη, λάθος παράθυρο", u"εντάξει, σύμφωνοι", u"πού είσαι;",
             u"Χάλασε πάλι το πληκτρολόγιο"}},
    Phrases{u"il",
            {u"שלום", u"מה שלומך?", u"תודה רבה!", u"להתראות מחר", u"מה השעה עכשיו?",
             u"אני מגיע בעוד 10 דקות", u"תשלח לי את הקובץ, בבקשה.", u"הפגישה מתחילה בתשע.",
             u"סליחה, טעיתי בחלון", u"בסדר גמור", u"איפה אתה?", u"המקלדת שלי שוב התקלקלה"}},
    Phrases{u"de",
            {u"schöne Grüße", u"wie geht es dir?", u"bis später", u"Danke für die Hilfe!",
             u"Wie viel Uhr ist es jetzt?", u"Ich bin in zehn Minuten da",
             u"Schick mir bitte die Datei noch einmal.", u"Die Sitzung beginnt um neun.",
             u"zur Zeit leider nicht möglich", u"Kannst du Brötchen kaufen?",
             u"jetzt zahlen", u"Meine Tastatur ist schon wieder kaputt, so ein Mist"}},
    Phrases{u"fr",
            {u"bonjour", u"comment ça va ?", u"merci beaucoup !", u"à demain matin",
             u"Quelle heure est-il maintenant ?", u"J'arrive dans dix minutes",
             u"Envoie-moi le fichier, s'il te plaît.", u"La réunion commence à neuf heures.",
             u"désolé, je me suis trompé", u"d'accord, ça marche", u"où es-tu ?",
             u"Mon clavier est encore cassé"}},
};

} // namespace quorvel
