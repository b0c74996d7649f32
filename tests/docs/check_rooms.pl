#!/usr/bin/perl
# Rooms: every include of the library and of the programs points to its own room or down, in the order of the tables
# in CONTRIBUTING.md; rooms of one row do not include each other. Modules do not include each other in circles. GL
# names appear only in their room, and only tests, benchmarks and drawings know more of the library than Fovix.h.
use strict;
use warnings;

sub slurp {
    my ($path) = @_;
    local $/;
    open my $file, '<', $path or die "$path: $!\n";
    return scalar <$file>;
}

sub without_comments {
    my ($code) = @_;
    $code =~ s{/\*.*?\*/}{}gs;
    $code =~ s{//.*}{}g;
    return $code;
}

my (%level, @faults);
my $row = 0;
my ($chapter) = slurp('CONTRIBUTING.md') =~ /^## Rooms$(.*?)(?=^## )/ms;
for my $line (($chapter // '') =~ /^(\| `(?:Multi|host)\/[^|]*\|)/mg) {
    ++$row;
    $level{$_} = $row for $line =~ /`((?:Multi|host)\/[\w\/]*)`/g;
}
die "CONTRIBUTING.md: no table of rooms\n" unless keys %level > 10;

my %used;      # module => modules that it includes
my @sources = grep { /\.(h|c|cpp)$/ } split /\n/, `git ls-files --cached --others --exclude-standard Multi host examples`;
@sources = grep { -e } @sources;
die "no sources found\n" unless @sources > 100;
for my $path (@sources) {
    my ($room) = $path =~ m{^(.*/)};
    my $code = without_comments(slurp($path));
    my ($root) = $path =~ m{^(\w+)/};
    if ($root ne 'examples' && !defined $level{$room}) {
        push @faults, "$path: $room is in no table of rooms";
        next;
    }
    if ($root eq 'Multi' && $room ne 'Multi/gl/' && $code =~ /\b(gl(?!Check)[A-Z]\w*|GL_[A-Z]\w*|GL(?:enum|u?int|float))\b/) {
        push @faults, "$path speaks of $1 outside Multi/gl/";
    }
    while ($code =~ /^\s*#\s*include\s*(["<])([^">]+)[">]/mg) {
        my ($quote, $name) = ($1, $2);
        next if $name eq 'Fovix.h';
        my ($target) = grep { -e } ("$root/$name", "$room$name", "Multi/$name");
        if (!defined $target) {
            push @faults, "$path includes \"$name\", which is in no room" if $quote eq '"';
            push @faults, "$path includes <$name>" if $name =~ /glew/ && $room ne 'Multi/gl/' && $root eq 'Multi';
            next;
        }
        my ($target_room) = $target =~ m{^(.*/)};
        my ($target_root) = $target =~ m{^(\w+)/};
        if ($target_root ne $root) {
            push @faults, "$path includes $name of the library";
        } elsif ($target ne "$root/$name" && $root ne 'examples') {
            push @faults, "$path includes $name without its room";
        } elsif ($level{$target_room} > $level{$room}) {
            push @faults, "$path includes $name of a higher room";
        } elsif ($level{$target_room} == $level{$room} && $target_room ne $room) {
            push @faults, "$path includes $name of a room beside it";
        }
        my ($module, $other) = map { s/\.\w+$//r } $path, $target;
        $used{$module}{$other} = 1 if $module ne $other;
    }
}

# Circles: leave out what includes nothing that is left, until nothing changes.
my %left = %used;
while (my @done = grep { my $module = $_; !grep { $left{$_} } keys %{$left{$module}} } keys %left) {
    delete @left{@done};
}
push @faults, "modules include each other in a circle: " . join(' ', sort keys %left) if %left;

my %files;
$files{s{/[^/]*$}{}r}++ for grep { /\.(h|c|cpp)$/ } split /\n/, `git ls-files`;
push @faults, map { "$_ has more than 30 source files" } grep { $files{$_} > 30 } keys %files;

print "$_\n" for sort @faults;
exit(@faults ? 1 : 0);
