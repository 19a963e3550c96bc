#include <string>
#include <string_view>

#include "batch/command_line.h"

namespace cuewright {
namespace {

constexpr std::string_view kProgram =
    "Usage: cuewright-batch COMMAND [OPTION]... [FILE]...\n"
    "Reads, recognises and writes subtitle files without a window.\n"
    "\n"
    "Commands:\n"
    "  formats            list the formats of the catalogue\n"
    "  detect FILE...     tell each file's format\n"
    "  dump FILE          print the captions of a file\n"
    "  convert FILE...    write files anew, in their own or another format\n"
    "  peaks FILE         print the peaks of a wave file\n"
    "  rules FILE         correct a file by the rules and print the report\n"
    "  retime FILE        shift, stretch or straighten the times of a file\n"
    "  replace FILE       replace text in the captions of a file\n"
    "  profiles           list what houses ask of subtitles\n"
    "  check FILE         hold a file against what a house asks\n"
    "  shots FILM         find the changes of shot in a film\n"
    "  align TEXT         give the lines of a text the times at which a film says them\n"
    "  sync FILE          bring a file made for another cut or rate to a film or another subtitle\n"
    "  fit FILE           move captions that were held by hand to where the film's voice is\n"
    "\n";

constexpr std::string_view kFormats =
    "Usage: cuewright-batch formats [OPTION]...\n"
    "A line a format: index, identifier, name, extensions, timecode, tags (1 bold + 2 italic\n"
    "+ 4 underline) and header (1: built by the program), separated by tabs.\n"
    "\n";

constexpr std::string_view kDetect =
    "Usage: cuewright-batch detect [OPTION]... FILE...\n"
    "A line a file: path, tab, identifier of the format; PLAINTEXT for text without times,\n"
    "'-' for a file that isn't recognised.\n"
    "\n";

constexpr std::string_view kDump =
    "Usage: cuewright-batch dump [OPTION]... FILE\n"
    "A line a caption: number, start and end in ms, text, separated by tabs. In the text a\n"
    "backslash, tab, CR and LF are written \\\\, \\t, \\r and \\n.\n"
    "\n";

constexpr std::string_view kConvert =
    "Usage: cuewright-batch convert FILE... (--out FILE | --folder DIR) [--to ID] [OPTION]...\n"
    "\n"
    "  --to ID             format to write, an identifier that 'formats' lists; without it each file\n"
    "                      is written in its own format\n"
    "  --out FILE          file to write; one input only. '-' is the standard output\n"
    "  --folder DIR        folder for the results, named as the inputs, with --to with the format's\n"
    "                      extension\n"
    "  --files-from FILE   read further inputs from FILE, a name a line; '-' is the standard input\n"
    "  --jobs N            work on N files at once (default: as many as there are cores). Messages and\n"
    "                      results come in the order of the inputs\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS; without\n"
    "                      it that of the file. Nothing is written when it lacks letters\n"
    "  --untimed keep|drop write everything (keep, the default), or nothing from the first caption\n"
    "                      without a start time on (drop)\n"
    "  --rules             correct the captions by the rules on the way\n"
    "\n"
    "Behind several files a line on the error stream says how many were written.\n"
    "\n";

constexpr std::string_view kRules =
    "Usage: cuewright-batch rules FILE [--standard | --detailed] [--out FILE --to ID] [OPTION]...\n"
    "Applies the correction rules and prints their report. The rules' settings are given by --set,\n"
    "such as Cuewright/Collision=0 or Cuewright/T_CREDITSTEXT=www,@.\n"
    "\n"
    "  --standard          a line an entry (the default)\n"
    "  --detailed          all that is told of each entry\n"
    "  --out FILE --to ID  write the corrected captions in a format that 'formats' lists\n"
    "\n";

constexpr std::string_view kRetime =
    "Usage: cuewright-batch retime FILE HOW [--rows A-B] --out FILE [OPTION]...\n"
    "Changes the times of captions, to the nearest millisecond, and prints how many changed. What\n"
    "would come to lie before 0 is at 0 then, and told. HOW is one of\n"
    "\n"
    "  --shift MS          add milliseconds; a negative number moves captions to the front\n"
    "  --speed A/B         multiply every time by A/B, such as 25/24 or 1001/1000\n"
    "  --fps-from A --fps-to B\n"
    "                      keep the numbers of frames while the rate becomes another\n"
    "  --point ROW=MS      let a caption begin at a time; given more than once, times between two\n"
    "                      points lie on a straight line, which goes on beyond the outer ones\n"
    "\n"
    "  --rows A-B          only captions A to B, numbered as 'dump' does; A, A- and -B go as well\n"
    "  --out FILE          file to write; FILE itself may be written over when it was read whole\n"
    "  --to ID             format to write, if not the file's own\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS; without\n"
    "                      it that of the file. Nothing is written when it lacks letters\n"
    "\n";

constexpr std::string_view kReplace =
    "Usage: cuewright-batch replace FILE --find TEXT --with TEXT [--regex] [--case] [--rows A-B]\n"
    "                               --out FILE [OPTION]...\n"
    "Replaces text in captions and prints how many changed. Tags inside the text are not searched and\n"
    "stay where they are.\n"
    "\n"
    "  --find TEXT         what to find; letters of both cases match\n"
    "  --with TEXT         what comes in its place; may be empty\n"
    "  --regex             TEXT to find is a regular expression; $1 in the other is its first group,\n"
    "                      and \\n a line break of the caption\n"
    "  --case              letters match in their own case only\n"
    "  --rows A-B          only captions A to B, numbered as 'dump' does; A, A- and -B go as well\n"
    "  --out FILE          file to write; FILE itself may be written over when it was read whole\n"
    "  --to ID             format to write, if not the file's own\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS; without\n"
    "                      it that of the file. Nothing is written when it lacks letters\n"
    "\n";

constexpr std::string_view kPeaks =
    "Usage: cuewright-batch peaks [OPTION]... FILE\n"
    "The number of entries that the wave's header lets expect, two a column of 10 ms; then a line\n"
    "a column that was read: its number from 0, its highest and its lowest sample, separated by\n"
    "tabs. The file is a wave of PCM samples with 8 or 16 bits.\n"
    "\n";

constexpr std::string_view kProfiles =
    "Usage: cuewright-batch profiles [OPTION]...\n"
    "A line a set of house rules: its name for --profile, its title, the language, the date of its\n"
    "values and their source, separated by tabs.\n"
    "\n";

constexpr std::string_view kCheck =
    "Usage: cuewright-batch check FILE --profile NAME [--film FILM | --fps N] [OPTION]...\n"
    "A line a finding: number of the caption, rule, value and limit, separated by tabs. Times are in\n"
    "ms. The exit status is 3 when there is any.\n"
    "\n"
    "  --profile NAME      house rules that 'profiles' lists\n"
    "  --film FILM         take the rate from this film, and look for its changes of shot where the house\n"
    "                      asks for times at them\n"
    "\n"
    "Frames are counted at the rate of the film or of --fps, else at that of the file or of the house\n"
    "rules. Rules:\n"
    "min-duration, max-duration, overlap and gap (towards the caption before), cps (characters a\n"
    "second), wpm (words a minute), line-length, length, lines, balance (shortest line in hundredths\n"
    "of the longest), pyramid, dash, line-end (the word that ends a line), shot-start and shot-end (how\n"
    "many frames behind the change of shot).\n"
    "\n";

constexpr std::string_view kShots =
    "Usage: cuewright-batch shots [OPTION]... FILM\n"
    "A line a change of shot: the number of the picture from 0, which is the first of the new shot or\n"
    "the middle of a fade, its presentation time in ms, and cut or fade, separated by tabs. The film is\n"
    "read by ffmpeg.\n"
    "\n";

constexpr std::string_view kAlign =
    "Usage: cuewright-batch align TEXT --film FILM --language CODE --out FILE [--to ID] [OPTION]...\n"
    "Gives every line of a text the times at which a film says it, found by the sound alone: espeak-ng\n"
    "speaks the lines, and ffmpeg reads the film. A line of output a line of the text: its number, start\n"
    "and end in ms, how sure it is from 0 to 1, and sure or doubtful, separated by tabs. Lines that\n"
    "nobody says are doubtful and lie between their neighbours; speech that stands in no line is passed.\n"
    "\n"
    "  --film FILM         the film or its sound\n"
    "  --language CODE     the language of the text, such as en or pt-BR; espeak-ng lists them\n"
    "  --out FILE          file to write; never TEXT itself\n"
    "  --to ID             format to write, an identifier that 'formats' lists; without it the one that\n"
    "                      the name of the file to write stands for, else SUBRIP\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS\n"
    "\n";

constexpr std::string_view kSync =
    "Usage: cuewright-batch sync FILE --with OTHER --out FILE [OPTION]...\n"
    "Brings captions that were made for another cut or rate to the voices of a film, or to the times of\n"
    "another subtitle: finds the rate, the shift and where something was cut out or put in. A line a\n"
    "segment: its first and last caption, the milliseconds that are added, the ratio by which times are\n"
    "multiplied before that, how sure it is from 0 to 1, and sure or doubtful, separated by tabs. A file\n"
    "that fits already keeps its times. Captions that fit no better than by chance are told as such;\n"
    "then nothing is written and the exit status is 1.\n"
    "\n"
    "  --with OTHER        the film, whose sound is read by ffmpeg, or a subtitle\n"
    "  --out FILE          file to write; FILE itself may be written over when it was read whole\n"
    "  --to ID             format to write, if not the file's own\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS; without\n"
    "                      it that of the file. Nothing is written when it lacks letters\n"
    "\n";

constexpr std::string_view kFit =
    "Usage: cuewright-batch fit FILE --film FILM [--language LL] [--reaction MS|auto] [--rows A-B]\n"
    "                           --out FILE [OPTION]...\n"
    "Moves the starts and ends of captions that a person held by hand to where the voice begins and\n"
    "ends. A time moves at most 350 ms from where the person's usual lateness puts it; one that the\n"
    "sound tells too little of gets that lateness taken off and nothing more. Neighbours don't come to\n"
    "overlap. The sound is read by ffmpeg.\n"
    "\n"
    "  --film FILM         the film; its first sound track is heard, the centre channel of one that has it\n"
    "  --language LL       the language of captions whose words are spoken in the film, such as en or\n"
    "                      pt-BR: espeak-ng speaks them, and where they fit is where the voice is.\n"
    "                      Without it, and without espeak-ng, only the sound's own changes are used\n"
    "  --reaction MS       by how many milliseconds the person starts too late in the median; auto (the\n"
    "                      default) finds it from the film\n"
    "  --rows A-B          only captions A to B, numbered as 'dump' does; A, A- and -B go as well\n"
    "  --out FILE          file to write; FILE itself may be written over when it was read whole\n"
    "  --to ID             format to write, if not the file's own\n"
    "  --encoding NAME     encoding to write, such as UTF-8, UTF-16, windows-1252 or Shift_JIS; without\n"
    "                      it that of the file. Nothing is written when it lacks letters\n"
    "\n"
    "With --json a line a caption: row, start, end, old_start, old_end in ms, and confidence from 0 to 1,\n"
    "the probability that the less sure of both times is right to 50 ms. When nothing can be fitted the\n"
    "times stay as they are, and the reason is told.\n"
    "\n";

constexpr std::string_view kCommon =
    "A FILE of the name '-' is the standard input.\n"
    "\n"
    "Options of every command:\n"
    "  --fps N             frame rate of files that count frames, 1 to 240 (default 25, or what the\n"
    "                      file tells). 23.976, 29.97, 47.952, 59.94 and 119.88 are the rates of\n"
    "                      television, 24000/1001 and so on\n"
    "  --text HOW          auto: UTF-8 and UTF-16 are recognised; classic: 8-bit text in the\n"
    "                      locale's code page; classic:NNN: in code page NNN\n"
    "  --read-as NAME      read files as text of this encoding, whatever they look like\n"
    "  --classic           work in the classic manner; --text classic implies it\n"
    "  --catalogue DIR     folder of formats.dat and formats.ini (default: the program's own)\n"
    "  --separator TEXT    what stands for a line break inside a caption (default |)\n"
    "  --set SECTION/KEY=VALUE\n"
    "                      a setting for this run, such as SAMI/size=20 or Cuewright/LBREAK=/n\n"
    "  --settings FILE     read the stored settings of FILE\n"
    "  --json              print JSON, an object a line\n"
    "  --quiet             print no messages and no progress\n"
    "  --help, --version\n"
    "\n"
    "The exit status is 0, or 1 when a file failed, or 2 for wrong usage.\n";

}  // namespace

std::string HelpText(std::string_view command) {
  std::string_view own = kProgram;
  if (command == "formats") own = kFormats;
  if (command == "detect") own = kDetect;
  if (command == "dump") own = kDump;
  if (command == "convert") own = kConvert;
  if (command == "peaks") own = kPeaks;
  if (command == "rules") own = kRules;
  if (command == "retime") own = kRetime;
  if (command == "replace") own = kReplace;
  if (command == "profiles") own = kProfiles;
  if (command == "check") own = kCheck;
  if (command == "shots") own = kShots;
  if (command == "align") own = kAlign;
  if (command == "sync") own = kSync;
  if (command == "fit") own = kFit;
  return std::string(own) + std::string(kCommon);
}

}  // namespace cuewright
