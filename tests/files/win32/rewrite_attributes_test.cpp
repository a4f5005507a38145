// What a file has besides its text is the same after an edit: attributes and access list.
#include <gtest/gtest.h>

#include <vector>

#include "files/paths.h"
#include "files/rewrite.h"
#include "platform/win32/win32.h"
#include "tests/support/recorded_reports.h"
#include "tests/support/support.h"

namespace corvane {
namespace {

using Bytes = std::vector<std::byte>;

Bytes SecurityOf(const std::wstring& path, SECURITY_INFORMATION part) {
    DWORD size = 0;
    GetFileSecurityW(path.c_str(), part, nullptr, 0, &size);
    Bytes security(size);
    EXPECT_TRUE(GetFileSecurityW(path.c_str(), part, security.data(), size, &size));
    return security;
}

// Only its owner may open the file.
void KeepOthersOut(const std::wstring& path) {
    Bytes security = SecurityOf(path, OWNER_SECURITY_INFORMATION);
    PSID owner = nullptr;
    BOOL isDefault = FALSE;
    ASSERT_TRUE(GetSecurityDescriptorOwner(security.data(), &owner, &isDefault));
    Bytes list(sizeof(ACL) + sizeof(ACCESS_ALLOWED_ACE) + GetLengthSid(owner));
    auto* const acl = reinterpret_cast<ACL*>(list.data());
    ASSERT_TRUE(InitializeAcl(acl, static_cast<DWORD>(list.size()), ACL_REVISION));
    ASSERT_TRUE(AddAccessAllowedAce(acl, ACL_REVISION, FILE_ALL_ACCESS, owner));
    SECURITY_DESCRIPTOR descriptor;
    ASSERT_TRUE(InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION));
    ASSERT_TRUE(SetSecurityDescriptorDacl(&descriptor, TRUE, acl, FALSE));
    ASSERT_TRUE(SetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, &descriptor));
}

struct RewriteAttributes : testing::Test {
    const test::RecordedReports screen;
    const test::TemporaryFolder folder;
    const std::wstring path = folder.File(L"ship.ve2");

    RewriteAttributes() { test::WriteFileBytes(path, "old"); }
    void Edit() const {
        Rewrite rewrite;
        rewrite.keepBackup = true;
        ASSERT_TRUE(OpenOldText(rewrite, path));
        BeginRewrite(rewrite, path);
        WriteLine(rewrite.writer, "new");
        ASSERT_EQ(FinishRewrite(rewrite), RewriteEnd::kDone);
        ASSERT_EQ(test::ReadFileBytes(path), "new\r\n");
    }
};

TEST_F(RewriteAttributes, AccessListIsThatOfTheOldFile) {
    const Bytes usual = SecurityOf(path, DACL_SECURITY_INFORMATION);
    KeepOthersOut(path);
    const Bytes old = SecurityOf(path, DACL_SECURITY_INFORMATION);
    ASSERT_NE(old, usual) << "a new file has it, too";
    Edit();
    EXPECT_EQ(SecurityOf(path, DACL_SECURITY_INFORMATION), old);
    EXPECT_EQ(SecurityOf(BackupPath(path), DACL_SECURITY_INFORMATION), old);
}

TEST_F(RewriteAttributes, AttributesAreThoseOfTheOldFile) {
    for (const DWORD attributes : {DWORD{FILE_ATTRIBUTE_HIDDEN}, DWORD{FILE_ATTRIBUTE_SYSTEM},
                                   DWORD{FILE_ATTRIBUTE_ARCHIVE}}) {
        ASSERT_TRUE(SetFileAttributesW(path.c_str(), attributes));
        const DWORD old = GetFileAttributesW(path.c_str());
        Edit();
        EXPECT_EQ(GetFileAttributesW(path.c_str()), old);
    }
}

}  // namespace
}  // namespace corvane
