#include "platform/linux/recognition/BackgroundWords.h"

namespace brivandel {

namespace {

// After the word frequencies of the engine's general English model; all of them are in its dictionary.
constexpr QStringView text = uR"(
the to i and a of you that in it is for but know was have they on like be not it's so with are one this
he yeah just my we as what if do at or don't about i'm all think there would from two me people can your
get out no that's said up more when an had right well hundred really has thousand will oh because how
time them she been by some who their his were now then go good mean than going her see could much other
you're five got three even too only want did him something very where here way which nine lot make say
first years back any new our also over into ah i've they're year thing still four should work things
those take us most didn't why these never twenty there's need after being can't okay little down kind
point actually many day off come same six before last he's look sure eight money doing pretty around
seven always guess life dollars long yes better probably every we're world does anything maybe school
great find doesn't though made big feel through thirty cause game old put use different stuff ten home
may might used am thought while best since man love own getting another fifty few bad give part percent
live family i'll tell ever gonna again went someone help i'd keep everything try play hard done enough
trying next end away its place far forty talk ninety both real says country kids times least person bit
such million high exactly what's isn't told nothing friends believe let call having able show else watch
ago job nice start once whole house government problem looking change children each without days found
true saying between less week she's seen already wouldn't makes guy course care name second came sixty
pay wasn't talking until making seems eighty thanks either idea seventy read yet definitely team working
city mr wanted left remember huh fact night business months state number against called half public
understand everyone whatever er almost run friend case took sometimes today must sorry god important
wrong started heard haven't couple minutes hi set reason question system together car games women war
hope states hey stop happened thank guys coming sort small won't fun hear york under let's quite during
agree free wow buy close past food top anyone hours you've saw side news kinda myself cool mind thinking
company deal whether comes happen interesting looks gets later taking young parents phone ask stay
matter please we've united especially power health area american rather move open usually goes line
fifteen sense using men wait story means couldn't however somebody fine leave become playing lost level
water living full often t head funny yourself instead group college zero happy president easy ones
others knew post month hit seem supposed age needs room experience v asked computer support turn outside
issue 'em eat given movie likely hand aren't white possible face market everybody book wants weeks gone
tried certain early police rest you'll future taken countries problems cost situation woman chance
sounds information child twelve third anyway type mother girl party players bring works check watching
win worked basically black hour lives eleven middle worth hello husband added internet security based
cut law son running control married soon body along paid season wife spend history dog single learn
behind example difficult front america themselves clear huge wanna shows obama order although per played
price class death they've plan human jobs takes father local s south felt amount answer gave within
music absolutely across schools we'll longer economy kill topic knows hold morning pick ok unless late
pounds meet video office difference major town happens word hate companies needed known moment
completely low large general mine enjoy killed national dead building involved wish totally died you'd
walk air north education issues several political study certainly according places mom service fight
community imagine hell billion crazy moved kid c heart short ready looked figure sit space cold ways
lose sound students list baby gotta changed social drive street alone worse cannot reading light
research turned perhaps reality they'll books hot current break spent amazing words sports energy lived
simply boy process shot wonder california dad add obviously similar stand higher feeling personal iraq
questions listen doctor university seeing risk strong average near decided relationship older die
serious build daughter player online summer expect available awesome inside military media fire test
fast save report hands private main oil financial n east minimum term u giving poor favorite who's
expected finally program interest choice red continue movies send industry brother interested china
common weird bought rate speak road attack itself sell door fall lol entire shouldn't due americans
ahead allowed decision opinion west brought special economic anymore terms met nobody recently form
forward worry de court starting view nearly telling position girls store attention consider football
miss perfect site sent bill himself points waiting normal force easier trust sick film tax value series
result worst fair act won vote action mm smoking stupid trade except born smoke anybody eighteen wage
miles step return including changes evidence somewhere hurt members lots extra bank beautiful field
share ground biggest moving asking picture total forget race edit safe fourteen watched plus ball card
society uh became record mostly quality truth seriously super etc comment expensive create eyes paying
simple global write d tough travel kept sign follow minute cat thirteen blood among fan lead meant data
cases europe period increase trouble growing above sitting international calling putting offer weather
british rules drink damage message size parts access personally technology glad seemed effect land
families paper allow hospital english sixteen key quickly population willing opportunity happening art
cancer date credit gotten sad depends reasons luck realize areas none project recent pass account
beginning weight policy sleep role further provide sir gives weren't lower board compared particular
numbers feet built focus cars piece drop round bush ended drug yep washington fear talked final calls
green center spending sister teams television eating bunch medical costs doubt event john insurance
terrible choose campaign christmas computers loved drugs dogs clean o earlier career match park straight
club character honestly rights science subject wall original student crisis afraid source eventually
clearly ability considered towards grew it'll version grow link learned catch bed training sold beat
began gas otherwise bet london unfortunately yesterday prices fit currently bigger feels election earth
easily hair anywhere services held regular explain actual walking correct respect lack eye box results
majority england visit driving touch pain church twice liked impact fans thousands groups stopped threat
tend language popular goal caught meeting option younger pressure hasn't voice exercise gun helped lucky
dude range teachers learning b joke decide pull teacher events weapons chinese track cover star
department reddit aware trip writing quick surprised fighting afford plane literally wonderful plans
development speed culture peace la hopefully m stage ice charge throw tonight op following concerned l
potential title base brain beyond honest boys dark wrote raise income helps natural search excuse screen
winter blue positive particularly buying tomorrow non p advice success complete finding ideas stick
foreign missing leaving response article legal reach partner fish specific september plenty seventeen
teach stories press bar raised bottom generally growth cash los league apparently degree effort carry
they'd loss nation table workers restaurant slow comments nature passed weekend dollar budget rich
created conversation politics necessarily im train ya contact song marriage despite model san wear deep
avoid crime page worried protect century e climate rule showed thinks texas present double scene
patients nineteen prefer gold cheap extremely federal self missed army member healthy challenge florida
practice floor staff fat losing environment ran led disease millions fix google hoping fly stock he'll
possibly harder afghanistan statement keeping necessary accept levels religion written fourth removed
que island animals style holiday speaking shut product sport picked female comedy knowing pictures
baseball argument notice radio freedom professional strange cards french ridiculous here's performance
hang dream dinner begin africa mention spot benefit standard welcome suppose european britain basic
nuclear dangerous central claim cats india station speech smart handle brown push daily individual
related note alive turns kinds target sales male impossible likes airport physical content former
received stuck starts modern homes finish neither lines rock address indeed design immediately rise snow
agreed he'd website busy knowledge seconds lady successful violence forced released network noticed
mentioned generation somehow we'd fell decent canada killing mark count taxes shop leaders approach
drinking web selling smaller debate machine draw king everywhere union understanding join benefits
changing ride upon administration standing significant release truly safety thread hundreds property
assume treatment previous whose horrible obvious banks advantage appreciate suggest trial broke lie
heavy quit sunday helping failed finished doctors color quarter responsible foot planning broken overall
cook coast signed coffee sweet whenever capital image world's reported y comfortable grade cell scared
closer production people's religious interview shoot classes scary judge prime region apart defense code
laugh blame gosh david skin characters powerful audience investment plays products below camera directly
required names showing apartment skills officials improve decade hotel debt warm waste sea girlfriend
prison yours minister official strike fairly solution mistake jump dot taste ship leader holding mass
basketball attacks cup responsibility decisions closed prove bucks angeles programs awful dr effects
basis affected ha hearing michael largest direction dropped include employees runs sun forces chicago
businesses scale email becomes demand random forever resources nations winning keeps battle friday
france secret laws ms scientists balance spread considering flight tired limited posted sub options
followed faster wondering tells becoming bus remain decades affect wind caused cities effective flying
congress beach manager prevent sides opened negative systems excited depending rates details israel
hadn't wearing throughout f slightly named george holy forgot taught believed planet exist text fully
competition customers onto conditions rent contract heat progress greater normally mad amp illegal
larger justice rid opening purpose jesus western discussion grown clothes active meaning boss entirely
mouth mess teaching parties russia background japan murder prepared mobile eh march activities offered
surprise ain't pet window figured listening recommend bag movement treat markets troops soldiers
ourselves developed council managed theory proud saturday hm episode highly name's designed um r
familiar windows jersey appear band items mission terrorist clinton upset faith types humor realized
concern january highest shape opposite material increased conference fault animal recession flu
management leading shown produce pulled useful germany besides it'd letter exact newspaper users factor
massive adding sale tv iran fantastic director restaurants fund monday turning direct cross multiple
walked terrorism alcohol block pop feelings evening angry setting appears attempt seat studies remains
korea accident wide pets survey mental constantly x spring wake traffic memory therefore careful till
beer dealing rare uses activity apply suddenly brand mexico fresh lord sector develop bringing map civil
various software instance reduce cute strategy fuel tiny excellent aid admit thoughts require regardless
fifth latest boyfriend separate county researchers officer crowd serve en sites covered values folks
treated interests jokes coach gym supply corner shopping dance sexual confidence reports whom fill
southern arms ill greatest ends birthday returned stayed library grand figures square channel tour lunch
perspective loves bike gain democratic rain stars bother com wild receive shoes originally agency
enjoyed hardly glass guns evil wanting driver condition birth cheaper independent connection nor actions
complex argue shooting pool context behavior lying tree dying feed acting meat weapon republicans limit
ring adult published roll goodness hole patient magic cable blow concept developing distance solid
survive discovered bomb republican tests promise humans brothers plant gift jack yea boston saved enemy
ticket democrats parent adults switch staying relatively strength pack kick score barely edge remove g
odd joe pieces curious german quiet one's specifically testing july videos h mrs herself facebook
perfectly famous discuss kidding camp talks june failure section matters labour carbon houses stores
fixed politicians location influence wedding shame possibility claims pro posts profit pregnant projects
philadelphia boring japanese australia dating streets reaction proper friendly flat somewhat
)";

} // namespace

QList<QStringView> backgroundWords() {
    QList<QStringView> words;
    for (const QStringView line : text.tokenize(u'\n')) {
        for (const QStringView word : line.tokenize(u' ', Qt::SkipEmptyParts)) {
            words << word;
        }
    }
    return words;
}

} // namespace brivandel
