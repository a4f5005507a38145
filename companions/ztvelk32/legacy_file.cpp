#include "companions/ztvelk32/legacy_file.h"

#include <algorithm>
#include <bit>
#include <cstring>

#include "platform/patience.h"
#include "platform/system.h"

namespace corvane::ztvelk32 {
namespace {

using system::ErrorNumber;
using system::kErrorNone;

static_assert(std::endian::native == std::endian::little, "records are written as they stand");

constexpr int64_t kSlotsBegin = sizeof(FileHead) + sizeof(ShipBlock);

// FNV-1a of 32 bits over words of 32 bits. A change of a single word always changes the result.
uint32_t Checksum(const void* bytes, size_t size) {
    constexpr uint32_t kBasis = 2166136261U;
    constexpr uint32_t kPrime = 16777619U;
    const auto* next = static_cast<const char*>(bytes);
    uint32_t sum = kBasis;
    for (size_t i = 0; i < size; i += sizeof(uint32_t)) {
        uint32_t word = 0;
        std::memcpy(&word, next + i, sizeof(word));
        sum = (sum ^ word) * kPrime;
    }
    return sum;
}

// Everything but the checksum, which is at the record's end.
template <class Record>
uint32_t ChecksumOf(const Record& record) {
    static_assert(offsetof(Record, checksum) + sizeof(uint32_t) == sizeof(Record));
    return Checksum(&record, offsetof(Record, checksum));
}

// ---- Reading -----------------------------------------------------------------------------------

struct Input {
    system::File file;
    system::FileStamp stamp;

    Input() = default;
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input() { system::CloseFile(file); }
};

bool ReadExactly(const Input& input, void* bytes, size_t size) {
    auto* next = static_cast<char*>(bytes);
    while (size > 0) {
        size_t count = 0;
        if (system::ReadBytes(input.file, next, size, count) != kErrorNone || count == 0) {
            return false;
        }
        next += count;
        size -= count;
    }
    return true;
}

template <class Record>
bool ReadChecked(const Input& input, Record& record) {
    return ReadExactly(input, &record, sizeof(Record)) && record.checksum == ChecksumOf(record);
}

// A file that begins as ours do, and ends too early, was ours.
int16_t CheckHead(const Input& input, FileHead& head) {
    const auto there = static_cast<size_t>(std::min<int64_t>(input.stamp.size, sizeof(head)));
    if (there == 0 || !ReadExactly(input, &head, there)) return kLegacyForeign;
    if (!std::equal(kMagic, kMagic + std::min(there, sizeof(kMagic)), head.magic)) {
        return kLegacyForeign;
    }
    if (there < sizeof(head) || head.checksum != ChecksumOf(head)) return kLegacyDamaged;
    if (head.version != kFormatVersion) return kLegacyForeign;
    const int64_t size = kSlotsBegin + int64_t{head.sectionCount} * int64_t{sizeof(Slot)};
    const bool isWhole = head.sectionCount <= kMostSections && size == input.stamp.size;
    return isWhole ? kLegacyDone : kLegacyDamaged;
}

using OpenFile = ErrorNumber (*)(const std::wstring& path, system::File& file);

int16_t OpenDatabase(const std::wstring& path, OpenFile open, Input& input, FileHead& head) {
    ErrorNumber error =
        system::CallPatiently(system::IsLocked, [&] { return open(path, input.file); });
    if (error == kErrorNone) error = system::GetFileStamp(input.file, input.stamp);
    return error == kErrorNone ? CheckHead(input, head) : kLegacyFileMissing;
}

int16_t ReadAll(const std::wstring& path, OpenFile open, Input& input, Database& database) {
    FileHead head{};
    const int16_t status = OpenDatabase(path, open, input, head);
    if (status != kLegacyDone) return status;
    ShipBlock ship;
    if (!ReadChecked(input, ship)) return kLegacyDamaged;
    std::vector<Slot> slots(head.sectionCount);
    for (Slot& slot : slots) {
        if (!ReadChecked(input, slot)) return kLegacyDamaged;
    }
    database.bsd = ship.bsd;
    database.slots = std::move(slots);
    return kLegacyDone;
}

// ---- Writing -----------------------------------------------------------------------------------

std::wstring FolderOf(const std::wstring& path) {
    return path.substr(0, path.find_last_of(L"\\/") + 1);
}

FileHead HeadOf(const Database& database) {
    FileHead head{};
    std::copy(std::begin(kMagic), std::end(kMagic), head.magic);
    head.version = kFormatVersion;
    head.sectionCount = static_cast<uint32_t>(database.slots.size());
    head.checksum = ChecksumOf(head);
    return head;
}

ErrorNumber WriteAll(system::File file, Database& database) {
    const FileHead head = HeadOf(database);
    ShipBlock ship{database.bsd, 0};
    ship.checksum = ChecksumOf(ship);
    for (Slot& slot : database.slots) slot.checksum = ChecksumOf(slot);
    ErrorNumber error = system::WriteBytes(file, &head, sizeof(head));
    if (error == kErrorNone) error = system::WriteBytes(file, &ship, sizeof(ship));
    if (error == kErrorNone) {
        error =
            system::WriteBytes(file, database.slots.data(), database.slots.size() * sizeof(Slot));
    }
    return error == kErrorNone ? system::FlushToDisk(file) : error;
}

ErrorNumber WriteNewFile(const std::wstring& path, Database& database) {
    system::File file;
    ErrorNumber error = system::CreateForWriting(path, file);
    if (error != kErrorNone) return error;
    error = WriteAll(file, database);
    const ErrorNumber closing = system::CloseFile(file);
    return error != kErrorNone ? error : closing;
}

// Whether the file is still what it was, and nobody writes it.
ErrorNumber LookAtOld(const std::wstring& path, const system::FileStamp& old) {
    system::File file;
    ErrorNumber error = system::OpenForEditing(path, file);
    if (error != kErrorNone) return error;
    system::FileStamp now;
    error = system::GetFileStamp(file, now);
    system::CloseFile(file);
    if (error != kErrorNone) return error;
    return now == old ? kErrorNone : system::kErrorFileChanged;
}

// Each attempt looks first: who holds the file may have written it.
ErrorNumber PutInPlace(const std::wstring& copy, const std::wstring& target,
                       const system::FileStamp* old) {
    return system::CallPatiently(system::IsHeldByAnother, [&] {
        const ErrorNumber error = old == nullptr ? kErrorNone : LookAtOld(target, *old);
        return error == kErrorNone ? system::RenameOver(copy, target) : error;
    });
}

}  // namespace

int16_t ReadDatabase(const std::wstring& path, Database& database) {
    Input input;
    return ReadAll(path, system::OpenForReading, input, database);
}

int16_t ReadForChange(const std::wstring& path, Database& database, system::FileStamp& stamp) {
    Input input;
    const int16_t status = ReadAll(path, system::OpenForEditing, input, database);
    if (status == kLegacyDone) stamp = input.stamp;
    return status;
}

int16_t ReadSlot(const std::wstring& path, int16_t section, Slot& slot) {
    Input input;
    FileHead head{};
    const int16_t status = OpenDatabase(path, system::OpenForReading, input, head);
    if (status != kLegacyDone) return status;
    if (section < 1 || static_cast<uint32_t>(section) > head.sectionCount) return kLegacyNoSection;
    const int64_t place = kSlotsBegin + int64_t{section - 1} * int64_t{sizeof(Slot)};
    Slot read;
    if (system::SetPosition(input.file, place) != kErrorNone || !ReadChecked(input, read)) {
        return kLegacyDamaged;
    }
    slot = read;
    return kLegacyDone;
}

int16_t WriteDatabase(const std::wstring& path, Database& database, const system::FileStamp* old,
                      std::wstring& leftOver) {
    const std::wstring target = system::AbsolutePath(path);
    system::FileStatus status;
    if (system::GetFileStatus(target, status) != kErrorNone || status.isReadOnly ||
        status.isDirectory) {
        return kLegacyNotWritten;
    }
    std::wstring copy;
    ErrorNumber error = system::NewTemporaryName(FolderOf(target), L"vel", copy);
    if (error == kErrorNone) error = WriteNewFile(copy, database);
    if (error == kErrorNone && status.exists) error = system::CopyAttributes(target, copy);
    if (error == kErrorNone) error = PutInPlace(copy, target, old);
    if (error == kErrorNone) return kLegacyDone;
    if (!copy.empty() && system::RemoveFile(copy) != kErrorNone) leftOver = copy;
    return kLegacyNotWritten;
}

}  // namespace corvane::ztvelk32
