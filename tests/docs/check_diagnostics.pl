#!/usr/bin/perl
# The guide's tables of diagnostics quote every line that the library prints, exactly, and no other.
use strict;
use warnings;

sub slurp {
    my ($path) = @_;
    local $/;
    open my $file, '<', $path or die "$path: $!\n";
    return scalar <$file>;
}

my $literal = qr/"((?:\\.|[^"\\])*)"/;
my %printed;
for my $path (glob 'Multi/*.cpp Multi/*.h Multi/*/*.cpp Multi/*/*.h') {
    my $code = slurp($path);
    next if $path =~ /FovixShaders/;
    $code =~ s{//.*}{}g;
    $code =~ s/^\s*#.*//mg;
    $code =~ s/"\s*\n\s*"//g;    # adjacent literals are concatenated
    while ($code =~ /printLine\((.*?)\);/gs) {
        my $arguments = $1;
        $printed{$1} = $path while $arguments =~ /$literal/g;
    }
    $printed{$1} = $path while $code =~ /"((?:\\.|[^"\\])*\\n)"/g;    # passed to a printLine
}
delete @printed{'%s', ''};

my ($chapter) = slurp('docs/host-guide.md') =~ /^## Diagnostics$(.*?)(?=^## |\z)/ms;
die "docs/host-guide.md: no chapter Diagnostics\n" unless $chapter;
my %explained;
for my $cell ($chapter =~ /^\| (`.+?`) \|/mg) {    # one line, or several that belong together
    $explained{$1} = 1 while $cell =~ /`([^`]+)`/g;
}

my @missing = grep { !$explained{$_} } sort keys %printed;
my @stale = grep { !$printed{$_} } sort keys %explained;
print "$printed{$_}: the guide does not explain `$_`\n" for @missing;
print "docs/host-guide.md: nothing prints `$_`\n" for @stale;
die "no lines found\n" if keys %printed < 50;
exit(@missing || @stale ? 1 : 0);
