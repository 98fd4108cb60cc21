// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/ToldFFmpeg.h"

#include "helpers/Contents.h"
#include "helpers/Mutagen.h"

namespace tonearm::test {

ToldFFmpeg::ToldFFmpeg()
    : FFmpegStandIn(
          "for file; do case \"$file\" in *.flac|*.m4a) name=$(basename \"$file\"); break;; esac; done\n"
          "touch \"$here/started-$name\"\n"
          "if [ -e \"$here/hold-$name\" ]; then\n"
          "  while [ ! -e \"$here/go-$name\" ]; do sleep 0.01; done\nfi\n"
          "if [ -e \"$here/fail-$name\" ]; then printf 'one\\ntwo\\n' >&2; exit 1; fi\n"
          "if [ -e \"$here/strip-$name\" ]; then\n"
          "  case \" $* \" in *' -t 1 '*) ;; *)\n"
          "    set -- -v error -y -i \"$file\" -map_metadata -1 -c copy \"$output\";;\n"
          "  esac\nfi\n"
          "exec \"$ffmpeg\" \"$@\"")
{
}

void ToldFFmpeg::tell(const QString &what, const QString &name) const
{
    writeFile(path(what + u'-' + name), "");
}

void addIdentifiers(const QString &path)
{
    python(R"(
from mutagen.mp4 import MP4
file = MP4(a[1])
for number in range(30):
    file['----:org.example.tagger:MusicBrainz Id %02d' % number] = b'value'
file.save()
)",
           {path});
}

} // namespace tonearm::test
