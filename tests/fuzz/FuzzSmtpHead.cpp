// The forward of a saved message: the file's lines go whole into the body,
// the send cuts the head off as extra header lines and puts the user's note
// where the head ended. Head, note and rest must add up to the file.

#include <fuzzer/FuzzedDataProvider.h>

#include "FuzzFolder.h"
#include "forwarding/SMTPFunc.h"
#include "settings/ConfigRecord.h"

namespace {

// A component that connects to nothing: it takes the message as a server
// would and keeps what the send handed over.
class TTakingSmtp : public TSmtpClient {
public:
    void Connect() override { Connected = 1; }
    void Disconnect() override { Connected = 0; }
    void SendMail() override {
        ExtraHeaders.Clear();
        Fire(OnSendStart);
        Sent = PostMessage.Body;
        Fire(OnSuccess);
    }
    TStringList Sent;
};

std::unique_ptr<TSmtpClient> NewTakingSmtp() {
    return std::make_unique<TTakingSmtp>();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const TFuzzFolder& folder = TFuzzFolder::Get();
    CreateSmtpClient = NewTakingSmtp;
    static TSMTPFunc smtp;
    auto& client = static_cast<TTakingSmtp&>(*smtp.Smtp);

    FuzzedDataProvider input(data, size);
    TStringList note;
    note.SetText(input.ConsumeRandomLengthString(200));
    unsigned char block[ConfigRecord::size - ConfigRecord::smtpBlock] = {};
    const std::string blockBytes = input.ConsumeRandomLengthString(sizeof block);
    std::copy(blockBytes.begin(), blockBytes.end(), block);
    TStringList file;
    file.LoadFromFile(folder.Write("message.eml", input.ConsumeRemainingBytesAsString()));
    smtp.Post->Body.SetText(file.GetText().view());

    FuzzCheck(smtp.SendPost(block, note), "the send goes through");
    const TStringList& head = smtp.HeaderLines;
    FuzzCheck(client.ExtraHeaders.Count() == head.Count(), "the head goes out as header lines");
    FuzzCheck(client.Sent.Count() == note.Count() + file.Count() - head.Count(),
              "the body is the note and the rest of the file");
    for (int i = 0; i < head.Count(); ++i)
        FuzzCheck(head[i] == file[i] && client.ExtraHeaders[i] == file[i],
                  "the head is the file's");
    for (int i = 0; i < note.Count(); ++i)
        FuzzCheck(client.Sent[i] == note[i], "the note comes first");
    for (int i = head.Count(); i < file.Count(); ++i)
        FuzzCheck(client.Sent[note.Count() + i - head.Count()] == file[i], "the rest follows");
    return 0;
}
