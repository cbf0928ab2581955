// CopyWithProgress to the stick beside cp and a sync that reaches the disk. The stick is the folder
// linked as drives/E beside this program.

#include "Ratio.h"
#include "core/PublicStuff.h"
#include "device/Transfer.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <string>

namespace {

class QuietBar : public tavel::ProgressBarView {
  public:
    void SetMin(float) override {}
    void SetMax(float) override {}
    void SetValue(float value) override { m_value = value; }
    float Value() const override { return m_value; }
    void Repaint() override {}

  private:
    float m_value = 0;
};

void Shell(const std::string& command) {
    if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: copy_bench SOURCE-FILE STICK-FOLDER\n");
        return 2;
    }
    const std::string source = argv[1];
    const std::string stick = argv[2];
    const std::string drivePath =
        tavel::oFSO().FromHostPath(std::filesystem::absolute(source).string());
    QuietBar bar;
    tavel::bench::Compare(
        "CopyWithProgress of 512 MiB to the stick, flushed", "cp and sync", 3, 1.1,
        [&](int) {
            tavel::CopyWithProgress(drivePath, "E:\\ours.bin", bar);
            std::filesystem::resize_file(stick + "/rival.bin", 0);
        },
        [&](int) {
            if (std::filesystem::exists(stick + "/ours.bin")) {
                std::filesystem::resize_file(stick + "/ours.bin", 0);
            }
            // sync -f would end while the disk below a loop device still has a part to write.
            Shell("cp '" + source + "' '" + stick + "/rival.bin' && sync '" + stick +
                  "/rival.bin' '" + stick + "'");
        });
    if (std::filesystem::file_size(stick + "/ours.bin") != std::filesystem::file_size(source)) {
        throw std::runtime_error("the copy is not whole");
    }
    return 0;
}
