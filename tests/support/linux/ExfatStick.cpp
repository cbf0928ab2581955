#include "support/linux/ExfatStick.h"

#include <cstdlib>
#include <filesystem>

namespace tavel::test {

namespace {

bool Run(const std::string& command) {
    return std::system((command + " 2>/dev/null").c_str()) == 0;
}

}  // namespace

ExfatStick::ExfatStick(int mebibytes, int soundMebibytes) {
    std::filesystem::create_directory(MountFolder());
    const std::string medium = m_temp.HostPath("medium");
    std::filesystem::create_directory(medium);
    if (soundMebibytes != 0) {
        const std::string size = std::to_string(soundMebibytes) + "m";
        if (!Try("tmpfs", "mount -t tmpfs -o size=" + size + " tmpfs " + medium)) return;
        m_isMediumMounted = true;
    }
    m_temp.Write("medium/image", "");
    std::filesystem::resize_file(Image(), static_cast<std::uintmax_t>(mebibytes) << 20);
    if (!Try("mkfs.exfat", "mkfs.exfat " + Image())) return;
    const std::string name = m_temp.HostPath("device");
    if (!Try("losetup", "losetup -f --show " + Image() + " >" + name)) return;
    m_device = m_temp.Read("device");
    m_device.resize(m_device.find('\n'));
    Try("mount", "mount.exfat-fuse " + m_device + " " + MountFolder());
}

ExfatStick::~ExfatStick() {
    Pull();
    if (!m_device.empty()) Run("losetup -d " + m_device);
    if (m_isMediumMounted) Run("umount -l " + m_temp.HostPath("medium"));
}

bool ExfatStick::Try(const std::string& what, const std::string& command) {
    const std::string errors = m_temp.HostPath("errors");
    const std::string quiet = "(" + command + ") >>" + errors + " 2>&1";
    if (std::system(quiet.c_str()) == 0) return true;
    m_whyNot = what + " is not possible here: " + m_temp.Read("errors");
    return false;
}

bool ExfatStick::Mount(const std::string& options) {
    return Run("mount.exfat-fuse -o " + options + " " + m_device + " " + MountFolder());
}

bool ExfatStick::Unmount() { return Run("umount " + MountFolder()); }

void ExfatStick::Pull() { Run("umount -l " + MountFolder()); }

std::string ExfatStick::BytesWhenPulled(const std::string& name) {
    const std::string copy = m_temp.HostPath("copy");
    const std::string folder = m_temp.HostPath("other");
    std::filesystem::create_directory(folder);
    std::filesystem::copy_file(Image(), copy, std::filesystem::copy_options::overwrite_existing);
    const std::string answer = m_temp.HostPath("otherDevice");
    Run("losetup -r -f --show " + copy + " >" + answer);
    std::string device = m_temp.Read("otherDevice");
    device.resize(device.find('\n'));
    Run("mount.exfat-fuse -o ro " + device + " " + folder);
    const std::string bytes = m_temp.Read("other/" + name);
    Run("umount " + folder);
    Run("losetup -d " + device);
    return bytes;
}

}  // namespace tavel::test
