// SPDX-FileCopyrightText: 2026 The rvopen authors
// SPDX-License-Identifier: MIT

#pragma once

#include <rvopen/RVOpenScanner.h>
#include <rvopen/xml/XmlCharacters.h>

#include <vector>

/// What a text is made of. Each view is a part of the text, so that its place is known from where
/// it begins; one without data stands for what is not there.
namespace rvopen::xml {

/// By how it begins.
enum class Markup { StartTag, EndTag, Cdata, Comment, Instruction, Declaration };

struct Declaration {
    View version;
    View encoding;
    View standalone;
};

struct DocumentType {
    View name;
    View publicId;
    View systemId;
};

using Attribute = ScannedAttribute;

struct StartTag {
    /// From the "<" to the ">".
    View text;
    View name;
    std::vector<Attribute> attributes;
    /// The tag is that of an element without content. Its end is told of all the same.
    bool isEmpty = false;
};

/// A run of text and references to characters, as long as it is.
struct Characters {
    View text;
    /// They stand for white space alone.
    bool isBlank = true;
    /// They are what they stand for: there is no reference among them.
    bool isPlain = true;
};

struct Instruction {
    View target;
    /// Without the white space before it.
    View data;
};

} // namespace rvopen::xml
