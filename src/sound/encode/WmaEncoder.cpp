// SPDX-License-Identifier: GPL-3.0-or-later
#include "sound/encode/WmaEncoder.h"

#include <cstdint>
#include <cstring>
#include <thread>

namespace tovik::sound {

struct WmaEncoder::Shared : EncoderState {
    /// False once samples came, which the tags have to precede.
    bool addTag(std::string name, std::string value) {
        const base::MutexLock lock(mutex_);
        if (taken_) {
            return false;
        }
        tags_.emplace_back(std::move(name), std::move(value));
        return true;
    }

    Tags takeTags() {
        const base::MutexLock lock(mutex_);
        taken_ = true;
        return std::exchange(tags_, {});
    }

private:
    base::Mutex mutex_;
    Tags tags_ TOVIK_GUARDED_BY(mutex_);
    bool taken_ TOVIK_GUARDED_BY(mutex_) = false;
};

namespace {

bool writeBlock(WmaFile& file, const base::Block& block, std::vector<std::int16_t>& samples) {
    samples.resize(block.size() / sizeof(std::int16_t));
    std::memcpy(samples.data(), block.data(), samples.size() * sizeof(std::int16_t));
    return file.write(samples);
}

} // namespace

WmaEncoder::WmaEncoder(std::string path, const WmaForm& form)
    : WmaEncoder(std::make_shared<Shared>()) {
    std::thread([shared = shared_, path = std::move(path), form] {
        std::string failure;
        const auto file = createWmaFile(path, form, failure);
        if (file == nullptr) {
            shared->fail(failure);
            return;
        }
        shared->enter(EncodeStage::running);
        std::optional<base::Block> block = shared->queue.take();
        for (const auto& [name, value] : shared->takeTags()) {
            file->setTag(name, value);
        }
        std::vector<std::int16_t> samples;
        bool written = true;
        for (; block && written; block = shared->queue.take()) {
            written = writeBlock(*file, *block, samples);
        }
        if (written) {
            shared->enter(EncodeStage::ending);
            written = file->finish();
        }
        if (written) {
            shared->enter(EncodeStage::finished);
        } else {
            shared->fail(file->failure());
        }
    }).detach();
}

WmaEncoder::WmaEncoder(std::shared_ptr<Shared> shared)
    : Encoder(shared), shared_(std::move(shared)) {}

bool WmaEncoder::setTag(std::string name, std::string value) {
    return shared_->addTag(std::move(name), std::move(value));
}

} // namespace tovik::sound
