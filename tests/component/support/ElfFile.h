// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <elf.h>
#include <link.h>

#include <cstddef>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace qel::api::camera::test {

/// What a shared object of the machine's own kind says about itself to the dynamic linker.
class ElfFile {
public:
    struct Symbol {
        std::string name;
        unsigned char type;    ///< STT_FUNC and the like
        unsigned char binding; ///< STB_GLOBAL and the like
    };

    explicit ElfFile(const char* path) {
        std::ifstream file(path, std::ios::binary);
        mBytes.assign(std::istreambuf_iterator<char>(file), {});
        constexpr char ownClass = sizeof(void*) == 8 ? ELFCLASS64 : ELFCLASS32;
        if (mBytes.size() < sizeof(Header) || std::memcmp(mBytes.data(), ELFMAG, SELFMAG) != 0 ||
            mBytes[EI_CLASS] != ownClass) {
            throw std::runtime_error(std::string(path) + " is no ELF file of this machine's word size");
        }
        const auto header = at<Header>(0);
        for (std::size_t i = 0; i < header.e_shnum; ++i) {
            const auto section = at<Section>(header.e_shoff + i * header.e_shentsize);
            const bool dynamic = section.sh_type == SHT_DYNAMIC;
            if (!dynamic && section.sh_type != SHT_DYNSYM) {
                continue;
            }
            const auto strings = at<Section>(header.e_shoff + std::size_t(section.sh_link) * header.e_shentsize);
            for (std::size_t offset = 0; offset < section.sh_size; offset += section.sh_entsize) {
                if (dynamic) {
                    readEntry(at<DynamicEntry>(section.sh_offset + offset), strings.sh_offset);
                } else {
                    readSymbol(at<SymbolEntry>(section.sh_offset + offset), strings.sh_offset);
                }
            }
        }
    }

    /// The symbols that it offers to others.
    [[nodiscard]] const std::vector<Symbol>& exports() const { return mExports; }
    [[nodiscard]] const std::string& bytes() const { return mBytes; }
    /// The libraries that it asks for.
    [[nodiscard]] const std::vector<std::string>& needed() const { return mNeeded; }
    /// The name that it gives itself.
    [[nodiscard]] const std::string& soname() const { return mSoname; }
    /// DF_1_NODELETE and the like.
    [[nodiscard]] std::size_t flags1() const { return mFlags1; }

private:
    // As wide as the machine's addresses.
    using Header = ElfW(Ehdr);
    using Section = ElfW(Shdr);
    using DynamicEntry = ElfW(Dyn);
    using SymbolEntry = ElfW(Sym);

    template <class Struct>
    [[nodiscard]] Struct at(const std::size_t offset) const {
        static_assert(std::is_trivially_copyable_v<Struct>);
        Struct value;
        if (offset > mBytes.size() || mBytes.size() - offset < sizeof value) {
            throw std::runtime_error("ELF file cut short");
        }
        std::memcpy(&value, mBytes.data() + offset, sizeof value);
        return value;
    }

    [[nodiscard]] std::string text(const std::size_t offset) const { return mBytes.c_str() + offset; }

    void readEntry(const DynamicEntry& entry, const std::size_t strings) {
        if (entry.d_tag == DT_NEEDED) {
            mNeeded.push_back(text(strings + entry.d_un.d_val));
        } else if (entry.d_tag == DT_SONAME) {
            mSoname = text(strings + entry.d_un.d_val);
        } else if (entry.d_tag == DT_FLAGS_1) {
            mFlags1 = entry.d_un.d_val;
        }
    }

    void readSymbol(const SymbolEntry& symbol, const std::size_t strings) {
        const unsigned char binding = ELF64_ST_BIND(symbol.st_info);
        if (symbol.st_shndx != SHN_UNDEF && binding != STB_LOCAL) {
            mExports.push_back(
                {text(strings + symbol.st_name), static_cast<unsigned char>(ELF64_ST_TYPE(symbol.st_info)), binding});
        }
    }

    std::string mBytes;
    std::vector<Symbol> mExports;
    std::vector<std::string> mNeeded;
    std::string mSoname;
    std::size_t mFlags1 = 0;
};

} // namespace qel::api::camera::test
