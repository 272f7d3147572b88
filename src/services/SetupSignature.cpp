#include "services/SetupSignature.h"

#include <sodium.h>

#include <algorithm>
#include <array>
#include <optional>

#include "core/Text.h"

namespace korva {

namespace {

constexpr std::size_t kAlgorithmBytes = 2;  // "Ed": the file itself is signed; "ED": its BLAKE2b hash
constexpr std::size_t kKeyNumberBytes = 8;
constexpr std::size_t kHeadBytes = kAlgorithmBytes + kKeyNumberBytes;
constexpr std::string_view kTrustedComment = "trusted comment: ";
constexpr std::string_view kFileWord = "file:";

using PublicKey = std::array<unsigned char, kHeadBytes + crypto_sign_PUBLICKEYBYTES>;
using Signature = std::array<unsigned char, kHeadBytes + crypto_sign_BYTES>;
using GlobalSignature = std::array<unsigned char, crypto_sign_BYTES>;

const unsigned char* AsBytes(std::string_view text) {
  return reinterpret_cast<const unsigned char*>(text.data());
}

template <class Bytes>
std::optional<Bytes> FromBase64(std::string_view text) {
  Bytes bytes{};
  std::size_t length = 0;
  const char* end = nullptr;
  if (sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &length, &end,
                        sodium_base64_VARIANT_ORIGINAL) != 0 ||
      length != bytes.size() || end != text.data() + text.size()) {
    return std::nullopt;
  }
  return bytes;
}

// The four lines of a signature file.
struct SignatureFile {
  Signature OfFile;
  std::string_view Comment;
  GlobalSignature OfComment;  // and of OfFile
};

std::optional<SignatureFile> ReadSignatureFile(std::string_view text) {
  std::array<std::string_view, 4> lines;
  for (std::string_view& line : lines) {
    const SplitLine split = TakeLine(text);
    line = split.line;
    text = split.rest;
  }
  const auto ofFile = FromBase64<Signature>(lines[1]);
  const auto ofComment = FromBase64<GlobalSignature>(lines[3]);
  if (!ofFile || !ofComment || !lines[2].starts_with(kTrustedComment)) {
    return std::nullopt;
  }
  return SignatureFile{*ofFile, lines[2].substr(kTrustedComment.size()), *ofComment};
}

bool IsValid(const unsigned char* signature, std::string_view message, const PublicKey& key) {
  return crypto_sign_verify_detached(signature, AsBytes(message), message.size(), key.data() + kHeadBytes) ==
         0;
}

bool FileVerifies(const Signature& signature, std::string_view file, const PublicKey& key) {
  const unsigned char* signatureItself = signature.data() + kHeadBytes;
  if (signature[0] != 'E') {
    return false;
  }
  if (signature[1] == 'd') {
    return IsValid(signatureItself, file, key);
  }
  std::array<unsigned char, crypto_generichash_BYTES_MAX> hash{};
  return signature[1] == 'D' &&
         crypto_generichash(hash.data(), hash.size(), AsBytes(file), file.size(), nullptr, 0) == 0 &&
         IsValid(signatureItself, {reinterpret_cast<const char*>(hash.data()), hash.size()}, key);
}

bool HasValidComment(const SignatureFile& signature, const PublicKey& key) {
  const Signature& ofFile = signature.OfFile;
  std::string signedText(reinterpret_cast<const char*>(ofFile.data()) + kHeadBytes, crypto_sign_BYTES);
  signedText += signature.Comment;
  return IsValid(signature.OfComment.data(), signedText, key);
}

// The comment is words with tabs between them, such as "timestamp:1700000000\tfile:setup.exe\thashed".
bool NamesFile(std::string_view comment, std::string_view name) {
  while (!comment.empty()) {
    const std::string_view word = comment.substr(0, comment.find('\t'));
    if (word.starts_with(kFileWord)) {
      return word.substr(kFileWord.size()) == name;
    }
    comment.remove_prefix(std::min(comment.size(), word.size() + 1));
  }
  return false;
}

std::optional<PublicKey> ReadKey(std::string_view text) {
  const auto key = FromBase64<PublicKey>(text);
  return key && (*key)[0] == 'E' && (*key)[1] == 'd' ? key : std::nullopt;
}

}  // namespace

std::string SignatureKeyFault(std::string_view publicKey) {
  return ReadKey(publicKey) ? "" : "this program has no key to check signatures with";
}

std::string SignatureFault(std::string_view file, std::string_view name, std::string_view signature,
                           std::string_view publicKey) {
  if (sodium_init() < 0) {
    return "signatures cannot be checked on this machine";
  }
  const auto key = ReadKey(publicKey);
  if (!key) {
    return SignatureKeyFault(publicKey);
  }
  const auto read = ReadSignatureFile(signature);
  if (!read) {
    return "the signature is malformed";
  }
  if (!std::equal(key->begin() + kAlgorithmBytes, key->begin() + kHeadBytes,
                  read->OfFile.begin() + kAlgorithmBytes)) {
    return "the signature was made with another key";
  }
  if (!FileVerifies(read->OfFile, file, *key) || !HasValidComment(*read, *key)) {
    return "the signature does not belong to the file";
  }
  return NamesFile(read->Comment, name) ? std::string() : "the signature was made for a file of another name";
}

}  // namespace korva
