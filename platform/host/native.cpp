#include "platform/host/native.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <cwctype>

namespace corvane::system {
namespace {

struct ErrorPair {
    int number;
    ErrorNumber error;
};

constexpr std::array<ErrorPair, 21> kErrors{{
    {ENOENT, kErrorFileNotFound},
    {ENOTDIR, kErrorPathNotFound},
    {ELOOP, kErrorPathNotFound},
    {EACCES, kErrorAccessDenied},
    {EPERM, kErrorAccessDenied},
    {EISDIR, kErrorAccessDenied},
    {EROFS, 19},  // write protected
    {EXDEV, 17},  // not the same device
    {ETXTBSY, kErrorSharingViolation},
    {EBUSY, kErrorSharingViolation},
    {EAGAIN, kErrorLockViolation},
    {EEXIST, kErrorFileExists},
    {EINVAL, kErrorInvalidParameter},
    {ENOSPC, kErrorDiskFull},
    {EDQUOT, kErrorDiskFull},
    {EFBIG, kErrorDiskFull},
    {ENAMETOOLONG, kErrorInvalidName},
    {ENOTEMPTY, 145},
    {EBADF, 6},
    {EMFILE, 4},
    {ENOMEM, 8},
}};

struct TextPair {
    ErrorNumber error;
    const wchar_t* text;
};

constexpr std::array<TextPair, 12> kErrorTexts{{
    {kErrorNone, L"The operation completed successfully."},
    {kErrorFileNotFound, L"The system cannot find the file specified."},
    {kErrorPathNotFound, L"The system cannot find the path specified."},
    {kErrorAccessDenied, L"Access is denied."},
    {kErrorSharingViolation,
     L"The process cannot access the file because it is being used by another process."},
    {kErrorLockViolation, L"Another process has locked a portion of the file."},
    {kErrorFileExists, L"The file exists."},
    {kErrorInvalidParameter, L"The parameter is incorrect."},
    {kErrorDiskFull, L"There is not enough space on the disk."},
    {kErrorInvalidName, L"The syntax of the name is not correct."},
    {kErrorModuleNotFound, L"The specified module could not be found."},
    {kErrorProcedureNotFound, L"The specified procedure could not be found."},
}};

bool HasDrive(const std::wstring& path) {
    return path.size() >= 2 && path[1] == L':';
}

// Bytes of the UTF-8 sequence that begins with `lead`; 0 when none does.
size_t SequenceLength(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    if (lead >= 0xF0 && lead < 0xF5) return 4;
    return 0;
}

bool FolderOfExists(std::string native) {
    while (native.size() > 1 && native.back() == '/') native.pop_back();
    const size_t slash = native.rfind('/');
    if (slash == std::string::npos || slash == 0) return true;
    struct stat status;
    return stat(native.substr(0, slash).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

std::string Utf8FromWide(std::wstring_view text) {
    std::string bytes;
    for (const char32_t code : text) {
        const auto tail = [code](int shift) {
            return static_cast<char>(0x80 | ((code >> shift) & 0x3F));
        };
        if (code < 0x80) {
            bytes += static_cast<char>(code);
        } else if (code < 0x800) {
            bytes += {static_cast<char>(0xC0 | (code >> 6)), tail(0)};
        } else if (code < 0x10000) {
            bytes += {static_cast<char>(0xE0 | (code >> 12)), tail(6), tail(0)};
        } else {
            bytes += {static_cast<char>(0xF0 | (code >> 18)), tail(12), tail(6), tail(0)};
        }
    }
    return bytes;
}

std::wstring WideFromUtf8(std::string_view bytes) {
    std::wstring text;
    while (!bytes.empty()) {
        const auto lead = static_cast<unsigned char>(bytes[0]);
        const size_t length = SequenceLength(lead);
        const auto isTail = [](char byte) { return (static_cast<unsigned char>(byte) >> 6) == 2; };
        const bool whole =
            length != 0 && length <= bytes.size() &&
            std::all_of(bytes.begin() + 1, bytes.begin() + static_cast<ptrdiff_t>(length), isTail);
        if (!whole) {
            text += wchar_t{0xFFFD};
            bytes.remove_prefix(1);
            continue;
        }
        uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
        for (size_t i = 1; i < length; ++i) {
            code = code << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3FU);
        }
        text += static_cast<wchar_t>(code);
        bytes.remove_prefix(length);
    }
    return text;
}

ErrorNumber NativePath(const std::wstring& path, std::string& native) {
    std::wstring name = path;
    if (HasDrive(name)) {
        const wchar_t drive = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(name[0])));
        if (drive != L'C' && drive != L'Z') return kErrorPathNotFound;
        name.erase(0, 2);
        if (name.empty()) name = L".";
    }
    if (name.empty()) return kErrorPathNotFound;
    if (name.find_first_of(std::wstring_view(L"*?\"<>|\0", 7)) != std::wstring::npos) {
        return kErrorInvalidName;
    }
    std::replace(name.begin(), name.end(), L'\\', L'/');
    native = Utf8FromWide(name);
    return kErrorNone;
}

std::wstring WindowsPath(std::string_view native) {
    std::wstring path = L"C:" + WideFromUtf8(native);
    std::replace(path.begin(), path.end(), L'/', L'\\');
    return path;
}

ErrorNumber ErrorFromErrno(int number) {
    const auto* found =
        std::find_if(kErrors.begin(), kErrors.end(),
                     [number](const ErrorPair& pair) { return pair.number == number; });
    return found == kErrors.end() ? kErrorIoDevice : found->error;
}

ErrorNumber ErrorOf(int64_t result) {
    return result == -1 ? ErrorFromErrno(errno) : kErrorNone;
}

ErrorNumber ErrorOfPath(int64_t result, const std::string& native) {
    const ErrorNumber error = ErrorOf(result);
    if (error == kErrorFileNotFound && !FolderOfExists(native)) return kErrorPathNotFound;
    return error;
}

std::wstring ErrorText(ErrorNumber error) {
    for (const TextPair& pair : kErrorTexts) {
        if (pair.error == error) return pair.text;
    }
    for (const ErrorPair& pair : kErrors) {
        if (pair.error == error) return WideFromUtf8(std::strerror(pair.number)) + L".";
    }
    if (error == kErrorIoDevice) {
        return L"The request could not be performed because of an I/O device error.";
    }
    return L"Unknown error.";
}

}  // namespace corvane::system
