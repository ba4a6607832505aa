"""What opening a file of given bytes asks, in order."""

import re

NON_ANSI, TERMINATORS = "Non-ANSI character", "Invalid line terminators"


def questions(content):
    asked = []
    looked_at = content[:max(0, len(content) - 1)] if len(content) < 256 else content[:256]
    if re.search(rb"[\x00-\x08\x0e-\x1f]", looked_at):
        asked.append(NON_ANSI)
    ends = re.findall(rb"\r\n|\r|\n", content)
    if content and (not ends or ends[0] != b"\r\n" and set(ends) != {ends[0]}):
        asked.append(TERMINATORS)
    return asked


def is_converted(content):
    """Whether loading turns lone CRs or LFs into CR LF."""
    ends = set(re.findall(rb"\r\n|\r|\n", content))
    return ends in ({b"\r"}, {b"\n"})
