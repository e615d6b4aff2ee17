#pragma once

namespace support {

/// Reaches a private member function from a test without a word in the class: access is not checked where a
/// template is instantiated explicitly. Describe the member, hand it over, call it:
///
///     namespace support {
///     struct Step
///     {
///         using Member = bool (Reader::*)(int);
///         friend Member privateMember(Step);
///     };
///     template struct PrivateMember<Step, &Reader::privateStep>;
///     } // namespace support
///
///     (reader.*privateMember(support::Step()))(7);
template <typename Key, typename Key::Member member>
struct PrivateMember
{
    friend typename Key::Member privateMember(Key) { return member; }
};

} // namespace support
