// The maker's signature of a setup program, as the tool minisign makes it.
#pragma once

#include <string>
#include <string_view>

namespace korva {

inline constexpr std::string_view kSignatureExtension = ".minisig";

// What is wrong with the key of the signatures, the base64 text of a minisign key (Ed25519); empty if nothing
// is.
std::string SignatureKeyFault(std::string_view publicKey);

// What is wrong with the signature of a file, in a few words; empty if nothing is. `signature` is the
// whole signature file of the bytes `file`. The trusted comment, which is signed too, has to name the file
// `name`: an old setup under a newer name is refused.
std::string SignatureFault(std::string_view file, std::string_view name, std::string_view signature,
                           std::string_view publicKey);

}  // namespace korva
