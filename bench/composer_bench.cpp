// The composer's keystroke: the largest segment count over three e-mail recipients of a 500-character text
// (MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend), against the three bare TAPI_SMS_CaculateSm calls on
// requests made ready beforehand, thread CPU time. Target: ratio at most 5.
#include "FloorComparison.h"
#include "MSGCTR_ENG_EncodeUti.h"
#include "TAPI.h"
#include "ZorHostControl.h"

#include <QStringList>
#include <QTemporaryDir>

#include <cstring>
#include <memory>
#include <vector>

namespace {

QString prose(int length)
{
    static const QString words = QStringLiteral(
        "Running late, the meeting moved to half past four; bring the slides and the notes from Monday. ");
    QString text;
    while (text.size() < length)
        text += words;
    text.truncate(length);
    return text;
}

void BM_KeystrokeThreeEmailRecipients(benchmark::State& state)
{
    QTemporaryDir root;
    ZorHost::setRoot(root.path());
    const QStringList recipients{QStringLiteral("alice@example.com"), QStringLiteral("bob.smith@example.org"),
                                 QStringLiteral("carol@mail.example.net")};
    const QString addressList = recipients.join(QLatin1Char(','));
    const QString body = prose(500);
    std::vector<std::unique_ptr<TAPI_SMS_CACULATE_SM_REQ_S>> ready;
    for (const QString& address : recipients) {
        const QString text = address + QLatin1Char(' ') + body;
        auto request = std::make_unique<TAPI_SMS_CACULATE_SM_REQ_S>();
        request->length = static_cast<unsigned short>(text.size());
        std::memcpy(request->text, text.utf16(), size_t(text.size()) * 2);
        request->text[text.size()] = 0;
        ready.push_back(std::move(request));
    }
    int maximum = 0;
    if (!MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, addressList, QString(), body) || maximum != 4) {
        state.SkipWithError("unexpected segment count");
        return;
    }
    TAPI_SMS_CACULATE_SM_RESULT_S result{};
    FloorComparison::run(
        state, FloorComparison::Clock::ThreadCpu, 16,
        [&] {
            MSGCTR_ENG_EncodeUti::getMaxEncodePacketNumForSend(&maximum, addressList, QString(), body);
            benchmark::DoNotOptimize(maximum);
        },
        [&] {
            for (const auto& request : ready) {
                benchmark::DoNotOptimize(TAPI_SMS_CaculateSm(request.get(), &result));
                benchmark::DoNotOptimize(result);
            }
        });
    ZorHost::resetAll();
    ZorHost::setRoot(QString());
}
BENCHMARK(BM_KeystrokeThreeEmailRecipients);

} // namespace
