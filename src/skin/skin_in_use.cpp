#include "skin/skin_in_use.h"

#include "core/clsMyApp.h"

#include <iostream>

namespace {

void toStandardError(const QString &line)
{
    std::cerr << line.toStdString() << std::endl;
}

} // namespace

SkinInUse::SkinInUse(const clsMyApp &myApp, WindowFrame frame, Report report)
    : m_myApp(myApp),
      m_frame(frame),
      m_report(report ? std::move(report) : Report(toStandardError)),
      m_description(std::make_unique<clsSkinResourceNew>(myApp))
{}

bool SkinInUse::change()
{
    auto description = std::make_unique<clsSkinResourceNew>(m_myApp);
    try {
        description->Initialize(m_fine);
    } catch (const SkinError &error) {
        m_report(QString(u"skin not used: " % error.reason()));
        return false;
    }
    if (m_description->isRead() && !description->isRead()) {
        m_report(QString(u"skin not used: there is no file \"" % m_myApp.Skin % u'"'));
        return false;
    }
    for (const QString &note : description->notes()) {
        m_report(QString(u"skin: " % note));
    }
    m_description = std::move(description);
    m_reported.clear();
    return true;
}

void SkinInUse::reportOnce(const QString &line)
{
    if (!m_reported.contains(line)) {
        m_reported.insert(line);
        m_report(line);
    }
}
