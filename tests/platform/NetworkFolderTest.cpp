#include "platform/NetworkFolder.h"
#include "support/Test.h"

#include <QTemporaryDir>

TEST(NetworkFolder, IsToldByItsFileSystem) {
    for (const char* deRed : {"nfs4", "cifs", "SMB3", "fuse.sshfs"})
        EXPECT_TRUE(EsSistemaDeRed(deRed)) << deRed;
    for (const char* local : {"ext4", "btrfs", "tmpfs", "overlay", "fuseblk", ""})
        EXPECT_FALSE(EsSistemaDeRed(local)) << local;
    const QTemporaryDir carpeta;
    EXPECT_FALSE(EstaEnRed(carpeta.filePath(u"aún/no/está.DB"_s)));
}
